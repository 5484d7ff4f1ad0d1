#include "reports/frmImpxPag.h"

#include "ui_frmImpxPag.h"

#include "platform/Notices.h"
#include "reports/PageRange.h"
#include "reports/SpoolRegistry.h"
#include "widgets/Application.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldKeys.h"
#include "widgets/WidgetHelpers.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

frmImpxPag::frmImpxPag(EntornoInformes entorno, ReportePedido pedido, const Paginas& paginas, QWidget* padre)
    : Forma(padre)
    , m_entorno(std::move(entorno))
    , m_pedido(std::move(pedido))
    , m_total(paginas.total)
    , m_ui(std::make_unique<Ui::frmImpxPag>()) {
    m_ui->setupUi(this);
    setWindowTitle(paginas.titulo);
    m_ui->txtPagDesde->setText(u"1"_s);
    for (QLineEdit* conTotal : {m_ui->txtTotPaginas, m_ui->txtPagHasta})
        conTotal->setText(QString::number(m_total));
    for (QLineEdit* campo : {m_ui->txtPagDesde, m_ui->txtPagHasta}) {
        EntrarComoTab(*campo);
        FiltraTeclas(
            *campo, [](int tecla) { return EsTeclaDePagina(tecla) ? tecla : 0; }, PasanNumeros());
    }
    connect(m_ui->cmdAccion_0, &QPushButton::clicked, this, Protegido([this] { Preliminar(); }));
    connect(m_ui->cmdAccion_1, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->cmdAccion_1});
    m_ui->txtPagDesde->selectAll();
}

frmImpxPag::~frmImpxPag() = default;

/// What was told of the report may be an estimate: the end that it gave stands for the report's real one.
void frmImpxPag::Preliminar() {
    const QString desde = m_ui->txtPagDesde->text();
    const int ultima = std::max(m_total, PaginasDe(RutaDeInforme(m_entorno.rutaRPT, m_pedido.archivo)).value_or(0));
    const QString hasta = m_ui->txtPagHasta->isModified() ? m_ui->txtPagHasta->text() : QString::number(ultima);
    const VeredictoRango veredicto = ValidaRango(desde, hasta, ultima);
    if (!veredicto) {
        m_entorno.avisos.Muestra(veredicto.Motivo());
        Enfoca(veredicto.ElCampo() == CampoRango::Hasta ? *m_ui->txtPagHasta : *m_ui->txtPagDesde);
        return;
    }
    m_pedido.rango = TomaRango(desde, hasta);
    VerReporte(m_entorno, m_pedido, ModoReporte::Vprevia, *this);
}

} // namespace xa518
