#include "reports/AnnexLines.h"

#include "data/ObjetoUtil.h"
#include "values/Format.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

// Where the columns end.
constexpr int kFinSerie = 4;
constexpr int kFinNumero = 14;
constexpr int kFinBase = 46;
constexpr int kFinTasa = 51;
constexpr int kFinPercepcion = 70;
constexpr int kFinComprobante = 91;
constexpr int kFinSeriePago = 99;
constexpr int kFinNumeroPago = 116;
constexpr int kFinFechaPago = 127;
constexpr int kFinMontoPago = 147;
constexpr int kFinBaseCliente = 40;
constexpr int kFinPercepcionCliente = 63;

constexpr int kAnchoNombre = 60;
constexpr int kAnchoTipoDoc = 12;
constexpr int kLargoFecha = 10;
constexpr int kAnchoTotal = 15;

constexpr QStringView kMascaraMonto = u"###,###,###,##0.00;(###,###,###,##0.00)";
constexpr QStringView kMascaraSuma = u"###,###,###,##0.00";

void Alinea(QString& linea, const QString& texto, int fin) {
    linea += ObjetoUtil::AlineaDerecha(texto, fin - static_cast<int>(linea.size()));
}

void Completa(QString& linea, QStringView texto, int fin) {
    linea += texto;
    linea = ObjetoUtil::AlineaIzquierda(linea, fin);
}

/// A date stands as it is stored.
QString Fecha(const QString& fecha) {
    return ObjetoUtil::AlineaIzquierda(fecha, kLargoFecha);
}

QString SiNo(const QString& respuesta, const QString& sinRespuesta) {
    return u"     "_s + (respuesta == u"1" ? u"SI"_s : respuesta == u"0" ? u"NO"_s : sinRespuesta);
}

} // namespace

QString LineasAnexo::PrimerTitulo() const {
    return m_desde200803 ? u" SERIE  NÚMERO     FECHA DE      MONTO COBRADO TASA    IMPORTE DE LA     CRED.  ZONA  LISTA  "
                           "TIPO SERIE  NUMERO         FECHA DE       IMPORTE     "_s
                         : u" SERIE  NÚMERO     FECHA DE      MONTO COBRADO TASA    IMPORTE DE LA     CRED.  LISTA INSTRU "
                           "TIPO SERIE  NUMERO         FECHA DE       IMPORTE     "_s;
}

QString LineasAnexo::SegundoTitulo() const {
    return m_desde200803 ? u"                   EMISIÓN                              PERCEPCIÓN       FISCAL EMERG ZOLMA   "
                           "DOC                       EMISIÓN    COMPROBANTE PAGO"_s
                         : u"                   EMISIÓN                              PERCEPCIÓN       FISCAL ZOLMA  PAGO   "
                           "DOC                       EMISIÓN    COMPROBANTE PAGO"_s;
}

QString LineasAnexo::Cliente(const ClienteImpreso& cliente, const QString& tipoDoc) {
    return ObjetoUtil::AlineaIzquierda(cliente.nombre.left(kAnchoNombre), kAnchoNombre) + u' ' +
           ObjetoUtil::AlineaIzquierda(tipoDoc, kAnchoTipoDoc) + u"  "_s + cliente.numero;
}

QString LineasAnexo::Comprobante(const ComprobanteImpreso& comprobante) const {
    QString linea;
    linea.reserve(kFinMontoPago);
    Completa(linea, Recorta(comprobante.serie), kFinSerie);
    Completa(linea, Recorta(comprobante.numero), kFinNumero);
    linea += u"  "_s + Fecha(comprobante.fecha) + u' ';
    Alinea(linea, Format(comprobante.base, kMascaraMonto), kFinBase);
    Alinea(linea, Format(comprobante.tasa, u"#0.0"), kFinTasa);
    Alinea(linea, Format(comprobante.percepcion, kMascaraMonto), kFinPercepcion);
    const QString noContesta = u" -"_s;
    linea += SiNo(comprobante.creditoFiscal, u"  "_s);
    linea += SiNo(m_desde200803 ? comprobante.medioPago : comprobante.listaClientes, noContesta);
    linea += SiNo(m_desde200803 ? comprobante.listaClientes : comprobante.medioPago, noContesta);
    return linea;
}

QString LineasAnexo::Contado(const ComprobanteImpreso& contado) const {
    return Comprobante(contado) + Format(contado.tipo, u"00") + u"  Venta al Contado"_s;
}

QString LineasAnexo::Pago(const QString& comprobante, const PagoImpreso& pago) {
    QString linea = ObjetoUtil::AlineaIzquierda(comprobante, kFinComprobante);
    linea += Format(pago.tipo, u"00") + u"  "_s;
    Completa(linea, pago.serie, kFinSeriePago);
    linea += u"  "_s;
    Completa(linea, pago.numero, kFinNumeroPago);
    linea += u' ';
    Completa(linea, Fecha(pago.fecha), kFinFechaPago);
    linea += u"  "_s;
    Alinea(linea, Format(pago.monto, kMascaraMonto), kFinMontoPago);
    return linea;
}

QString LineasAnexo::FinDeCliente(int comprobantes, Importe base, Importe percepcion) {
    QString linea = u"     "_s + QString::number(comprobantes) + u" Registros      "_s;
    Alinea(linea, Format(base, kMascaraSuma), kFinBaseCliente);
    linea += u"     "_s;
    Alinea(linea, Format(percepcion, kMascaraSuma), kFinPercepcionCliente);
    return linea;
}

QString LineasAnexo::Totales(Importe base, Importe percepcion) {
    const QString sangria = QString(20 + 29, u' ');
    return u" Sub-Totales:"_s + sangria + MontoConComas(base, kAnchoTotal) + MontoConComas(percepcion, kAnchoTotal);
}

QString LineasAnexo::Raya(int ancho) {
    return u' ' + ObjetoUtil::CompletaDerecha({}, ancho, u'_');
}

QString MontoConComas(Importe monto, int ancho) {
    QString texto = Format(monto, kMascaraSuma);
    if (texto.size() > ancho)
        texto.remove(u',');
    return ObjetoUtil::AlineaDerecha(texto, ancho);
}

} // namespace xa518
