#include "app/FrmConsultas.h"

#include "app/RowsModel.h"
#include "data/Process.h"

#include "ui_FrmConsultas.h"

#include <QHeaderView>

namespace xa518 {

using namespace Qt::StringLiterals;

FrmConsultas::FrmConsultas(Proceso& proceso, QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::FrmConsultas>())
    , m_datos(new ModeloFilas({u"Código"_s, u"Descripción"_s}, this)) {
    m_ui->setupUi(this);
    m_datos->setObjectName(u"Dta1"_s);
    m_ui->grdBancos->setModel(m_datos);
    m_ui->grdBancos->horizontalHeader()->setStretchLastSection(true);
    m_ui->grdBancos->horizontalHeader()->setHighlightSections(false);
    if (proceso.tipoConsulta == u"B") {
        setWindowTitle(u"Bancos"_s);
        m_datos->Lee(*proceso.baseDatos, {u"SELECT MID(ARGUMENTO,1,2) as codigo, mid(FUNCION,1,36) as descrip "
                                          "FROM PARAM WHERE NUMERO='004' AND TRIM(ARGUMENTO)<> '00' order by 1"_s,
                                          {}});
        m_ui->grdBancos->selectRow(0);
    }
    connect(m_ui->CmdSalir, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->CmdSalir});
}

FrmConsultas::~FrmConsultas() = default;

void FrmConsultas::Salir() {
    m_datos->Vacia();
    Termina();
}

} // namespace xa518
