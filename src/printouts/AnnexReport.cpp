#include "printouts/AnnexReport.h"

#include "data/Base.h"
#include "form518/FormCatalogs.h"
#include "platform/Clock.h"
#include "values/Dates.h"
#include "values/Format.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAncho = LineasAnexo::kAncho;
constexpr int kAnchoDeclarante = 105;

/// The head counts as ten lines though it takes more of the paper. Wanted: the limits below reckon with it.
constexpr int kLineasCabecera = 10;
constexpr int kUltimaLinea = 50;
constexpr int kLineasAntesDelCierre = 46;

constexpr int kLineasPorPaginaEstimadas = 42;
constexpr int kLineasFijasLeyenda = 7;

const QString& SqlLeyenda() {
    using Tipo = TramosTipoComprobante;
    static const QString sql = u"SELECT %1 as codigo,%2 as descrip FROM PARAM WHERE NUMERO='233' AND ( %3='1')"_s.arg(
        Tipo::kTipo.Sql(u"ARGUMENTO"), Tipo::kDescripcionEnLeyenda.Sql(u"FUNCION"), Tipo::kUso.Sql(u"funcion"));
    return sql;
}

qint64 Cuenta(Base& base, const QString& sql, const QVariantList& valores = {}) {
    Registros fila = base.Lee(u"SELECT count(*) FROM "_s + sql, valores);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

} // namespace

void InformeAnexo::Sumas::Agrega(const ComprobanteImpreso& comprobante) {
    ++comprobantes;
    base = base + Decimal::Valor(comprobante.base);
    percepcion = percepcion + Decimal::Valor(comprobante.percepcion);
}

InformeAnexo::InformeAnexo(Base& base, const Reloj& reloj, const DatosDeclaracion& datos, EscritorInforme& escritor)
    : m_base(&base)
    , m_reloj(&reloj)
    , m_datos(&datos)
    , m_escritor(&escritor)
    , m_lineas(datos.clave.periodo)
    , m_nombres(CargarGrilla(base))
    , m_cabecera(LineasFijas()) {}

int InformeAnexo::TotalPaginas(Base& base, const ClaveDeclaracion& clave) {
    const auto filasDe = [&](const QString& tabla) {
        return Cuenta(base, clave.Tabla(tabla) + u' ' + clave.Condicion(), clave.Valores());
    };
    const qint64 leyenda = Cuenta(base, u"("_s + SqlLeyenda() + u") AS q"_s);
    const qint64 lineas = leyenda + kLineasFijasLeyenda + 2 * filasDe(u"F518PCAB"_s) + 2 * filasDe(u"F518PDET"_s) +
                          2 * filasDe(u"F518PDETVC"_s);
    return static_cast<int>(lineas / kLineasPorPaginaEstimadas);
}

void InformeAnexo::Imprime() {
    m_escritor->PonAncho(kAncho);
    m_escritor->PonCabecera([this] { ImprimeCabeceraAnexo(); });
    ImprimeCabeceraAnexo();
    m_usadas = kLineasCabecera;
    FilasAnexo filas(*m_base, m_datos->clave);
    while (filas.SiguienteCliente())
        Cliente(filas);
    Cierre();
    Leyenda();
}

/// The code "F51801" is printed though the report is registered as PER007. Wanted: that is the sheet's own code.
QStringList InformeAnexo::LineasFijas() const {
    const QString& raya = LineasAnexo::RayaLarga();
    const QString declarante = u"DECLARANTE   : "_s + m_datos->clave.ruc.Texto() + u"  "_s + m_datos->nombreDeclarante;
    return {
        LineaCompuesta()
            .PonCentrado(u"QMD 0518 - AGENTES DE PERCEPCION VENTAS INTERNAS"_s, kAncho)
            .Pon(1, u"ZOLMA     "_s)
            .PonHasta(kAncho, u"F51801"_s)
            .Texto(),
        LineaCompuesta()
            .PonCentrado(u"REPORTE DE AGENTES DE PERCEPCION - PERIODO "_s + m_datos->clave.periodo.EnPantalla(), kAncho)
            .Texto(),
        declarante.leftJustified(kAnchoDeclarante, u' '),
        raya,
        u"  PERCEPCIONES "_s,
        raya,
        QString(25, u' ') + u"COMPROBANTE DE PERCEPCION EMITIDO"_s + QString(50, u' ') + u"COMPROBANTE DE PAGO"_s,
        raya,
        m_lineas.PrimerTitulo(),
        m_lineas.SegundoTitulo(),
        raya};
}

void InformeAnexo::ImprimeCabeceraAnexo() {
    const QDateTime ahora = m_reloj->Ahora();
    const QString pagina = Format(qint64{m_escritor->PaginaActual()}, u"##");
    m_escritor->ImprimeLinea(LineaCompuesta()
                                 .Pon(1, FormatFecha(ahora.date(), u"dd/mm/yyyy"))
                                 .Pon(13, FormatHora(ahora.time()))
                                 .PonHasta(kAncho, u"Pag:"_s + pagina.rightJustified(6, u' '))
                                 .Texto());
    for (const QString& linea : m_cabecera)
        m_escritor->ImprimeLinea(linea);
}

void InformeAnexo::Cliente(FilasAnexo& filas) {
    Linea(LineasAnexo::Cliente(filas.Cliente(), m_nombres.value(filas.Cliente().tipoDoc)));
    Sumas sumas;
    while (filas.SiguienteComprobante()) {
        const ComprobanteImpreso comprobante = filas.Comprobante();
        sumas.Agrega(comprobante);
        Comprobante(m_lineas.Comprobante(comprobante), filas);
    }
    while (filas.SiguienteContado()) {
        const ComprobanteImpreso contado = filas.Contado();
        sumas.Agrega(contado);
        Linea(m_lineas.Contado(contado));
    }
    FinDeCliente(sumas);
}

/// The first payment voucher stands on the voucher's own line.
void InformeAnexo::Comprobante(const QString& comprobante, FilasAnexo& filas) {
    if (!filas.SiguientePago()) {
        Linea(comprobante);
        return;
    }
    Linea(LineasAnexo::Pago(comprobante, filas.Pago()));
    while (filas.SiguientePago())
        Linea(LineasAnexo::Pago({}, filas.Pago()));
}

void InformeAnexo::FinDeCliente(const Sumas& sumas) {
    Linea(LineasAnexo::RayaLarga());
    Linea(LineasAnexo::FinDeCliente(sumas));
    Linea(LineasAnexo::RayaLarga());
    m_total.base = m_total.base + sumas.base;
    m_total.percepcion = m_total.percepcion + sumas.percepcion;
}

void InformeAnexo::Cierre() {
    if (m_usadas >= kLineasAntesDelCierre)
        TerminaPagina();
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
    m_escritor->ImprimeLinea(LineasAnexo::Totales(m_total));
    m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
}

void InformeAnexo::Leyenda() {
    const QString& raya = LineasAnexo::RayaCorta();
    for (const QString& linea :
         {QString(), raya, u" DOC. QUE DIO ORIGEN A PERCEPCION"_s, raya, u" TIPO    DESCRIPCION"_s, raya})
        m_escritor->ImprimeLinea(linea);
    Registros tipos = m_base->Lee(SqlLeyenda());
    while (tipos.Siguiente())
        m_escritor->ImprimeLinea(u"  "_s + tipos.Texto(0) + u"  "_s + Recorta(tipos.Texto(1)).toString());
    m_escritor->ImprimeLinea(raya);
}

void InformeAnexo::Linea(const QString& texto) {
    if (m_usadas > kUltimaLinea) {
        TerminaPagina();
        m_escritor->ImprimeLinea(LineasAnexo::RayaLarga());
        ++m_usadas;
    }
    m_escritor->ImprimeLinea(texto);
    ++m_usadas;
}

void InformeAnexo::TerminaPagina() {
    m_escritor->NuevaPagina();
    ImprimeCabeceraAnexo();
    m_usadas = kLineasCabecera;
}

} // namespace xa518
