#include "printouts/AnnexLines.h"

#include "printouts/AmountText.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"
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

constexpr int kAnchoRayaCorta = 50;
constexpr int kAnchoNombre = 63; ///< surnames and first names of 20 each, and what stands between them
constexpr int kAnchoTipoDoc = 11;
constexpr int kLargoFecha = 10;
constexpr int kAnchoTotal = 15;

void Blancos(QString& linea, qsizetype hasta) {
    if (linea.size() < hasta)
        linea.resize(hasta, u' ');
}

/// Right-aligned, ending at a place.
void Alinea(QString& linea, QStringView texto, qsizetype fin) {
    Blancos(linea, fin - texto.size());
    linea += texto;
}

/// Filled with blanks up to a place.
void Completa(QString& linea, QStringView texto, qsizetype fin) {
    linea += texto;
    Blancos(linea, fin);
}

/// "1" and "0" are answers.
QStringView SiNo(QStringView respuesta, QStringView sinRespuesta) {
    return respuesta == u"1" ? u"SI" : respuesta == u"0" ? u"NO" : sinRespuesta;
}

/// Codes come with two digits already, nearly always.
void AgregaTipo(QString& linea, QStringView tipo) {
    const bool listo = tipo.size() == 2 && EsDigito(tipo[0]) && EsDigito(tipo[1]);
    if (listo)
        linea += tipo;
    else
        linea += Format(tipo, u"00");
}

QString Raya(int ancho) {
    return u' ' + ObjetoUtil::CompletaDerecha({}, ancho, u'_');
}

} // namespace

const QString& LineasAnexo::RayaLarga() {
    static const QString raya = Raya(kAncho);
    return raya;
}

const QString& LineasAnexo::RayaCorta() {
    static const QString raya = Raya(kAnchoRayaCorta);
    return raya;
}

QString LineasAnexo::PrimerTitulo() const {
    return m_preguntaPorZona
               ? u" SERIE  NÚMERO     FECHA DE      MONTO COBRADO TASA    IMPORTE DE LA     CRED.  ZONA  LISTA  "
                 "TIPO SERIE  NUMERO         FECHA DE       IMPORTE     "_s
               : u" SERIE  NÚMERO     FECHA DE      MONTO COBRADO TASA    IMPORTE DE LA     CRED.  LISTA INSTRU "
                 "TIPO SERIE  NUMERO         FECHA DE       IMPORTE     "_s;
}

QString LineasAnexo::SegundoTitulo() const {
    return m_preguntaPorZona
               ? u"                   EMISIÓN                              PERCEPCIÓN       FISCAL EMERG ZOLMA   "
                 "DOC                       EMISIÓN    COMPROBANTE PAGO"_s
               : u"                   EMISIÓN                              PERCEPCIÓN       FISCAL ZOLMA  PAGO   "
                 "DOC                       EMISIÓN    COMPROBANTE PAGO"_s;
}

QString LineasAnexo::Cliente(const ClienteImpreso& cliente, const QString& tipoDoc) {
    QString linea;
    Completa(linea, cliente.nombre, kAnchoNombre);
    linea += u' ';
    Completa(linea, tipoDoc, linea.size() + kAnchoTipoDoc);
    return linea + u"  "_s + cliente.numero;
}

QString LineasAnexo::Comprobante(const ComprobanteImpreso& comprobante) {
    QString linea;
    linea.reserve(kFinMontoPago);
    Completa(linea, Recorta(comprobante.serie), kFinSerie);
    Completa(linea, Recorta(comprobante.numero), kFinNumero);
    linea += u"  ";
    Completa(linea, comprobante.fecha, linea.size() + kLargoFecha + 1); // as it is stored
    Alinea(linea, MontoConParentesis(comprobante.base), kFinBase);
    Alinea(linea, Tasa(comprobante.tasa), kFinTasa);
    Alinea(linea, MontoConParentesis(comprobante.percepcion), kFinPercepcion);
    const QStringView segunda = m_preguntaPorZona ? comprobante.medioPago : comprobante.listaClientes;
    const QStringView tercera = m_preguntaPorZona ? comprobante.listaClientes : comprobante.medioPago;
    for (const QStringView respuesta :
         {SiNo(comprobante.creditoFiscal, u"  "), SiNo(segunda, u" -"), SiNo(tercera, u" -")})
        linea.append(u"     ").append(respuesta);
    return linea;
}

/// Vouchers in a row nearly always share their rate.
const QString& LineasAnexo::Tasa(QStringView tasa) {
    if (m_tasa != tasa) {
        m_tasa = tasa.toString();
        m_tasaMostrada = Format(tasa, u"#0.0");
    }
    return m_tasaMostrada;
}

QString LineasAnexo::Contado(const ComprobanteImpreso& contado) {
    QString linea = Comprobante(contado);
    AgregaTipo(linea, contado.tipo);
    return linea + u"  Venta al Contado"_s;
}

QString LineasAnexo::Pago(const QString& comprobante, const PagoImpreso& pago) {
    QString linea;
    linea.reserve(kFinMontoPago);
    Completa(linea, comprobante, kFinComprobante);
    AgregaTipo(linea, pago.tipo);
    linea += u"  ";
    Completa(linea, pago.serie, kFinSeriePago);
    linea += u"  ";
    Completa(linea, pago.numero, kFinNumeroPago);
    linea += u' ';
    Completa(linea, pago.fecha, kFinFechaPago);
    linea += u"  ";
    Alinea(linea, MontoConParentesis(pago.monto), kFinMontoPago);
    return linea;
}

QString LineasAnexo::FinDeCliente(const SumasAnexo& sumas) {
    QString linea = u"     "_s + QString::number(sumas.comprobantes) + u" Registros      "_s;
    Alinea(linea, MontoConSigno(sumas.base), kFinBaseCliente);
    linea += u"     ";
    Alinea(linea, MontoConSigno(sumas.percepcion), kFinPercepcionCliente);
    return linea;
}

QString LineasAnexo::Totales(const SumasAnexo& sumas) {
    const QString sangria = QString(20 + 29, u' ');
    return u" Sub-Totales:"_s + sangria + MontoConComas(sumas.base, kAnchoTotal) +
           MontoConComas(sumas.percepcion, kAnchoTotal);
}

QString MontoConComas(const Decimal& monto, int ancho) {
    QString texto = MontoConSigno(monto);
    if (texto.size() > ancho)
        texto.remove(u',');
    return ObjetoUtil::AlineaDerecha(texto, ancho);
}

} // namespace xa518
