#include "printouts/FrmCambios.h"

#include "ui_FrmCambios.h"

#include "printouts/ComparisonModel.h"
#include "printouts/RunReport.h"
#include "values/Format.h"
#include "widgets/Application.h"
#include "widgets/LongTask.h"
#include "widgets/WidgetHelpers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumnaConcepto = 1;
constexpr int kColumnaCliente = 3;

QString Monto(Importe monto) {
    return Format(monto, u"###,###,###,##0.00");
}

QString MontoConSigno(Importe monto) {
    return (monto.Signo() > 0 ? u"+"_s : QString()) + Monto(monto);
}

QString TituloDeCopia(const PedidoDeComparacion& pedido) {
    const ClaveDeclaracion& clave = pedido.copia.clave;
    return u"Declaración %1 de %2 %3, período %4, frente a su %5."_s.arg(
        clave.formulario, clave.ruc.Texto(), pedido.nombre, clave.periodo.EnPantalla(), pedido.copia.Texto());
}

} // namespace

FrmCambios::FrmCambios(ProcesoAparte aparte, EntornoInformes entorno, DatosCambios datos, QWidget* padre)
    : Forma(padre)
    , m_aparte(std::move(aparte))
    , m_entorno(std::move(entorno))
    , m_datos(std::move(datos))
    , m_ui(std::make_unique<Ui::FrmCambios>()) {
    m_ui->setupUi(this);
    ComoTextoLlano(*this);
    Prepara({m_ui->CmdSalir});
    SaleConEsc();
    m_ui->LblCopia->setText(TituloDeCopia(m_datos.comparacion->pedido));
    m_ui->LblResumen->setText(Resumen());
    MuestraCasillas();
    MuestraClientes();
    connect(m_ui->CmdPreliminar, &QPushButton::clicked, this, Protegido([this] { Preliminar(); }));
    connect(m_ui->CmdSalir, &QPushButton::clicked, this, [this] { Salir(); });
}

FrmCambios::~FrmCambios() = default;

void FrmCambios::MuestraCasillas() {
    const QList<CasillaComparada>& casillas = m_datos.comparacion->casillas;
    const auto celdas = [&casillas](int fila) {
        const CasillaComparada& una = casillas.at(fila);
        const bool soloTexto = una.Cambia() && una.diferencia.isEmpty();
        return QStringList{Format(qint64{una.casilla}, u"000"), una.concepto, una.antes, una.despues,
                           soloTexto ? u"cambia"_s : una.diferencia};
    };
    m_ui->GrdCasillas->setModel(new ModeloDeComparacion(
        {{u"Casilla"_s}, {u"Concepto"_s}, {u"Antes"_s, true}, {u"Después"_s, true}, {u"Diferencia"_s, true}},
        {.cuantas = static_cast<int>(casillas.size()),
         .celdas = celdas,
         .resalta = [&casillas](int fila) { return casillas.at(fila).Cambia(); }},
        this));
    m_ui->GrdCasillas->AjustaColumnas(kColumnaConcepto);
    m_ui->GrdCasillas->PonFila(0);
}

void FrmCambios::MuestraClientes() {
    const QList<ClienteComparado>& clientes = m_datos.comparacion->clientes;
    m_ui->GrdClientes->setModel(
        new ModeloDeComparacion({{u"Cliente"_s},
                                 {u"Doc."_s},
                                 {u"Número"_s},
                                 {u"Nombre o razón social"_s},
                                 {u"Base antes"_s, true},
                                 {u"Base después"_s, true},
                                 {u"Perc. antes"_s, true},
                                 {u"Perc. después"_s, true},
                                 {u"Comp."_s},
                                 {u"De pago"_s}},
                                {.cuantas = static_cast<int>(clientes.size()),
                                 .celdas = [this, &clientes](int fila) { return CeldasDe(clientes.at(fila)); }},
                                this));
    m_ui->GrdClientes->AjustaColumnas(kColumnaCliente);
    m_ui->GrdClientes->PonFila(0);
}

QStringList FrmCambios::CeldasDe(const ClienteComparado& cliente) const {
    return {Palabra(cliente.clase),
            m_datos.nombres.value(cliente.tipoDoc),
            cliente.numero,
            cliente.otroNombre ? cliente.nombre + u" (otro nombre)"_s : cliente.nombre,
            Monto(cliente.antes.base),
            Monto(cliente.despues.base),
            Monto(cliente.antes.percepcion),
            Monto(cliente.despues.percepcion),
            cliente.comprobantes.Texto(),
            cliente.pagos.Texto()};
}

QString FrmCambios::Resumen() const {
    if (!m_datos.comparacion->HayCambios())
        return u"Nada cambia frente a lo enviado."_s;
    QStringList lineas;
    for (const ClaseDeCambio clase : {ClaseDeCambio::Agregado, ClaseDeCambio::Quitado, ClaseDeCambio::Cambiado}) {
        const Comparacion::Resumen resumen = m_datos.comparacion->De(clase);
        lineas.append(u"Clientes %1s: %2, base %3, percepción %4"_s.arg(
            Palabra(clase).toLower(), Format(qint64{resumen.clientes}, u"###,##0"),
            MontoConSigno(resumen.diferencia.base), MontoConSigno(resumen.diferencia.percepcion)));
    }
    return lineas.join(u'\n');
}

void FrmCambios::Preliminar() {
    CorreTarea(
        *this, {.titulo = u"Preparando el reporte"_s},
        [aparte = m_aparte, datos = m_datos](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            return EscribeInforme(suyo, datos, avance);
        },
        [this](const QString& archivo) {
            const ClaveDeclaracion& clave = m_datos.comparacion->pedido.copia.clave;
            const QString titulo =
                u"Qué cambia %1 - RUC %2 - %3"_s.arg(clave.formulario, clave.ruc.Texto(), clave.periodo.EnPantalla());
            MuestraReporte(m_entorno, {archivo, titulo, {}}, *this);
        });
}

} // namespace xa518
