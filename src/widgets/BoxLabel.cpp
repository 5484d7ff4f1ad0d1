#include "widgets/BoxLabel.h"

#include <QLabel>

namespace xa518 {

void ComoNumeroDeCasilla(QLabel& rotulo) {
    constexpr int kAire = 4;
    rotulo.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    rotulo.setAlignment(Qt::AlignCenter);
    rotulo.setMargin(kAire);
    rotulo.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

} // namespace xa518
