#include "app/FrmConsultas.h"

#include "data/Catalog.h"
#include "widgets/QueryModel.h"
#include "widgets/ReadGrid.h"

#include "ui_FrmConsultas.h"

namespace xa518 {

using namespace Qt::StringLiterals;

FrmConsultas::FrmConsultas(Base& base, QStringView tipo, QWidget* padre)
    : Forma(padre), m_ui(std::make_unique<Ui::FrmConsultas>()) {
    m_ui->setupUi(this);
    auto* datos = new ModeloDeConsulta({{u"Código"_s, 0, false, {}}, {u"Descripción"_s, 1, false, {}}}, this);
    datos->setObjectName(u"Dta1"_s);
    m_ui->grdBancos->setModel(datos);
    if (tipo == u"B") {
        setWindowTitle(u"Bancos"_s);
        datos->Consulta(base, SqlBancos());
    }
    m_ui->grdBancos->AjustaColumnas(1);
    m_ui->grdBancos->PonFila(0);
    connect(m_ui->CmdSalir, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->CmdSalir});
}

FrmConsultas::~FrmConsultas() = default;

} // namespace xa518
