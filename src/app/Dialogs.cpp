#include "app/Dialogs.h"

#include "widgets/ScreenFit.h"
#include "widgets/WidgetHelpers.h"

#include <QLayout>

#include <algorithm>

namespace xa518 {

void CentraSobre(const QWidget& ventana, QWidget& forma) {
    if (forma.layout())
        forma.layout()->activate(); // a form of fixed size takes it now
    CabeEnPantalla(forma);
    CentraControl(ventana, forma);
    forma.move(ventana.pos() + QPoint(std::max(forma.x(), 0), std::max(forma.y(), 0)));
}

} // namespace xa518
