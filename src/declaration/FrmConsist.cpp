#include "declaration/FrmConsist.h"

#include "ui_FrmConsist.h"

#include "declaration/Consistency.h"
#include "family/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

FrmConsist::FrmConsist(Proceso& proceso, QWidget* padre)
    : Forma(padre), m_proceso(proceso), m_ui(std::make_unique<Ui::FrmConsist>()) {
    m_ui->setupUi(this);
    Prepara({m_ui->CmdGrabar});
    // The print button has never done anything; wanted so, the file stays on disk for whoever needs it on paper.
    connect(m_ui->CmdGrabar, &QPushButton::clicked, this, [this] { Salir(); });
    m_ui->TxtPreliminar->setPlainText(LeeMens(m_proceso.rutaMens));
    m_ui->CmdGrabar->setFocus();
    m_proceso.verConsist = u"1"_s;
}

FrmConsist::~FrmConsist() {
    m_proceso.verConsist = u"0"_s;
}

} // namespace xa518
