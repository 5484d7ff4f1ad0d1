#include "printouts/frmImprimir.h"

#include "ui_frmImprimir.h"

#include "family/Process.h"
#include "platform/Notices.h"
#include "printouts/PrintList.h"
#include "reports/PageRange.h"
#include "reports/SpoolRegistry.h"
#include "reports/frmImpxPag.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/LongTask.h"
#include "widgets/QueryModel.h"
#include "widgets/StatusBar.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QList<ColumnaDeGrilla> Columnas(bool enviadas) {
    QList<ColumnaDeGrilla> columnas{{u"RUC"_s, ColumnaImprimir::Ruc, false, {}},
                                    {u"Nombre o razón social"_s, ColumnaImprimir::Nombre, false, {}},
                                    {u"Período"_s, ColumnaImprimir::PeriodoMostrado, false, {}}};
    if (enviadas)
        columnas.append({{u"Copia"_s, ColumnaImprimirEnviada::Correl, false, {}},
                         {u"Enviada"_s, ColumnaImprimirEnviada::FecEnv, false, {}},
                         {u"Nro. orden"_s, ColumnaImprimirEnviada::NOrden, false, {}},
                         {u"Control"_s, ColumnaImprimirEnviada::Control, false, {}},
                         {u"Rectifica"_s, ColumnaImprimirEnviada::Rectifica, false, {}}});
    else
        columnas.append({u"Rectifica"_s, ColumnaImprimir::Rectifica, false, {}});
    return columnas;
}

constexpr int kColumnaNombre = 1; ///< as it shows

} // namespace

/// The caption says which declarations are meant; the frame says "registradas" of both. Wanted: its text is
/// known so, and a sent declaration has been registered before.
frmImprimir::frmImprimir(Proceso& proceso, EntornoInformes entorno, BarradeEstadoQMD& barra, bool enviadas,
                         QWidget* padre)
    : Forma(padre)
    , m_proceso(proceso)
    , m_entorno(std::move(entorno))
    , m_barra(barra)
    , m_enviadas(enviadas)
    , m_ui(std::make_unique<Ui::frmImprimir>())
    , m_dta1(new ModeloDeConsulta(Columnas(m_enviadas), this)) {
    m_ui->setupUi(this);
    if (m_enviadas)
        setWindowTitle(u"Declaraciones Enviadas"_s);
    m_dta1->setObjectName(u"Dta1"_s);
    m_ui->grdContrib->setModel(m_dta1);
    connect(m_ui->grdContrib, &GrillaDeLectura::FilaActivada, m_ui->CmdImprimir_0, &QPushButton::click);
    connect(m_ui->grdContrib, &GrillaDeLectura::FilaCambiada, this, Protegido([this](int fila) { TomaFila(fila); }));
    connect(m_ui->CmdImprimir_0, &QPushButton::clicked, this, Protegido([this] { Preliminar(); }));
    connect(m_ui->CmdImprimir_1, &QPushButton::clicked, this, Protegido([this] { Imprimir(); }));
    connect(m_ui->CmdImprimir_2, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->CmdImprimir_2});
    CargaLista();
}

frmImprimir::~frmImprimir() = default;

void frmImprimir::CargaLista() {
    m_dta1->Consulta(*m_proceso.baseDatos, SqlParaImprimir(m_proceso, m_enviadas));
    m_ui->grdContrib->AjustaColumnas(kColumnaNombre);
    m_ui->grdContrib->PonFila(0);
    m_ui->grdContrib->setFocus();
}

QString frmImprimir::Celda(int fila, int columna) const {
    return Recorta(m_dta1->Texto(fila, columna)).toString();
}

ClaveDeclaracion frmImprimir::Clave(int fila) const {
    return {.ruc = Ruc(Celda(fila, ColumnaImprimir::Ruc)),
            .periodo = Periodo::DeTabla(Celda(fila, ColumnaImprimir::Periodo)).value_or(Periodo()),
            .formulario = m_proceso.numFormulario,
            .enviada = m_enviadas,
            .correl = m_enviadas ? Celda(fila, ColumnaImprimirEnviada::Correl) : QString()};
}

void frmImprimir::TomaFila(int fila) {
    if (fila < 0)
        return;
    const ClaveDeclaracion clave = Clave(fila);
    m_barra.PonRuc(clave.ruc.Texto());
    m_barra.PonNombre(Celda(fila, ColumnaImprimir::Nombre));
    m_barra.PonPeriodo(clave.periodo.EnPantalla());
}

std::optional<PedidoDeclaracion> frmImprimir::Pedido() {
    const int fila = m_ui->grdContrib->Fila();
    if (fila < 0)
        return std::nullopt;
    const ClaveDeclaracion clave = Clave(fila);
    const std::optional<DatosDeclaracion> datos = CargarCasillas(*m_proceso.baseDatos, clave);
    if (!datos) { // another program has sent or deleted it meanwhile
        m_entorno.avisos.Muestra(NoExisteDeclaracion(clave));
        CargaLista();
        return std::nullopt;
    }
    const bool anexo = m_ui->OptImp_1->isChecked();
    if (const Veredicto veredicto = ValidaAnexos(*datos); anexo && !veredicto) {
        m_entorno.avisos.Muestra(veredicto.Motivo());
        return std::nullopt;
    }
    return PedidoDeclaracion{*datos, anexo};
}

/// Builds the report that is asked for, and goes on with it.
void frmImprimir::Escribe(std::function<void(const PedidoDeclaracion&, const ReportePedido&)> sigue) {
    const std::optional<PedidoDeclaracion> pedido = Pedido();
    if (!pedido)
        return;
    CorreTarea(
        *this, {.titulo = u"Preparando el reporte"_s},
        [aparte = ProcesoAparte(m_proceso), pedido = *pedido](Avance& avance) {
            Proceso proceso = aparte.Abre();
            return EscribeInforme(proceso, pedido, avance);
        },
        [pedido = *pedido, sigue = std::move(sigue)](const QString& archivo) {
            sigue(pedido, {archivo, TituloDe(pedido.datos.clave, pedido.anexo), {}});
        });
}

void frmImprimir::Preliminar() {
    Escribe(
        [this](const PedidoDeclaracion&, const ReportePedido& reporte) { MuestraReporte(m_entorno, reporte, *this); });
}

/// Always by way of the range, however short the report.
void frmImprimir::Imprimir() {
    Escribe([this](const PedidoDeclaracion& pedido, const ReportePedido& reporte) {
        const int hojas = HojasDeImpresion(pedido, LeeNumeroHojas(RutaDeInforme(m_entorno.rutaRPT, reporte.archivo)));
        frmImpxPag dialogo(m_entorno, reporte, {hojas, TituloImpresion(hojas)}, this);
        AbreModal(dialogo);
    });
}

void frmImprimir::Salir() {
    m_barra.Limpia(m_proceso.numFormulario);
    Termina();
}

} // namespace xa518
