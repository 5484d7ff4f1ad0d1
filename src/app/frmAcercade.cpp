#include "app/frmAcercade.h"

#include "ui_frmAcercade.h"

namespace xa518 {

using namespace Qt::StringLiterals;

frmAcercade::frmAcercade(QWidget* padre) : Forma(padre), m_ui(std::make_unique<Ui::frmAcercade>()) {
    m_ui->setupUi(this);
    // Fixed, whatever the design says: it is the version of the form's rules, not of the build.
    m_ui->txtVersion->setText(u"Versión 1.5"_s);
    connect(m_ui->cmdAceptar, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->cmdAceptar});
}

frmAcercade::~frmAcercade() = default;

} // namespace xa518
