#include "declaration/FrmConsist.h"

#include "ui_FrmConsist.h"

#include "declaration/Consistency.h"

namespace xa518 {

FrmConsist::FrmConsist(const QString& rutaMens, QWidget* padre)
    : Forma(padre), m_ui(std::make_unique<Ui::FrmConsist>()) {
    m_ui->setupUi(this);
    Prepara({m_ui->CmdGrabar});
    // The print button has never done anything; wanted so, the file stays on disk for whoever needs it on paper.
    connect(m_ui->CmdGrabar, &QPushButton::clicked, this, [this] { Salir(); });
    m_ui->TxtPreliminar->setPlainText(LeeMens(rutaMens));
    m_ui->CmdGrabar->setFocus();
}

FrmConsist::~FrmConsist() = default;

} // namespace xa518
