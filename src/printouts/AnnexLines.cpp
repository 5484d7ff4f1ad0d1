#include "printouts/AnnexLines.h"

#include "printouts/AmountText.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

#include <QVarLengthArray>

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

/// A line in the making.
class Renglon {
  public:
    Renglon& Pon(QStringView texto) {
        m_letras.append(texto.utf16(), texto.size());
        return *this;
    }
    /// Blanks up to a place.
    Renglon& Hasta(qsizetype fin) {
        while (m_letras.size() < fin)
            m_letras.append(u' ');
        return *this;
    }
    /// Right-aligned, ending at a place.
    Renglon& Alinea(QStringView texto, qsizetype fin) { return Hasta(fin - texto.size()).Pon(texto); }

    [[nodiscard]] qsizetype Largo() const { return m_letras.size(); }
    [[nodiscard]] QString Texto() const { return QStringView(m_letras.data(), m_letras.size()).toString(); }

  private:
    static constexpr qsizetype kSinPedirMemoria = 192;
    QVarLengthArray<char16_t, kSinPedirMemoria> m_letras;
};

/// "1" and "0" are answers.
QStringView SiNo(QStringView respuesta, QStringView sinRespuesta) {
    return respuesta == u"1" ? u"SI" : respuesta == u"0" ? u"NO" : sinRespuesta;
}

/// Codes come with two digits already, nearly always.
void PonTipo(Renglon& linea, QStringView tipo) {
    const bool listo = tipo.size() == 2 && EsDigito(tipo[0]) && EsDigito(tipo[1]);
    if (listo)
        linea.Pon(tipo);
    else
        linea.Pon(Format(tipo, u"00"));
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
    Renglon linea;
    linea.Pon(cliente.nombre).Hasta(kAnchoNombre).Pon(u" ");
    linea.Pon(tipoDoc).Hasta(linea.Largo() - tipoDoc.size() + kAnchoTipoDoc);
    return linea.Pon(u"  ").Pon(cliente.numero).Texto();
}

QString LineasAnexo::Comprobante(const ComprobanteImpreso& comprobante) {
    Renglon linea;
    linea.Pon(Recorta(comprobante.serie)).Hasta(kFinSerie);
    linea.Pon(Recorta(comprobante.numero)).Hasta(kFinNumero);
    linea.Pon(u"  ").Pon(comprobante.fecha); // as it is stored
    linea.Hasta(linea.Largo() - comprobante.fecha.size() + kLargoFecha + 1);
    linea.Alinea(MontoConParentesis(comprobante.base), kFinBase)
        .Alinea(Tasa(comprobante.tasa), kFinTasa)
        .Alinea(MontoConParentesis(comprobante.percepcion), kFinPercepcion);
    const QStringView segunda = m_preguntaPorZona ? comprobante.medioPago : comprobante.listaClientes;
    const QStringView tercera = m_preguntaPorZona ? comprobante.listaClientes : comprobante.medioPago;
    for (const QStringView respuesta :
         {SiNo(comprobante.creditoFiscal, u"  "), SiNo(segunda, u" -"), SiNo(tercera, u" -")})
        linea.Pon(u"     ").Pon(respuesta);
    return linea.Texto();
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
    Renglon linea;
    linea.Pon(Comprobante(contado));
    PonTipo(linea, contado.tipo);
    return linea.Pon(u"  Venta al Contado").Texto();
}

QString LineasAnexo::Pago(const QString& comprobante, const PagoImpreso& pago) {
    Renglon linea;
    linea.Pon(comprobante).Hasta(kFinComprobante);
    PonTipo(linea, pago.tipo);
    linea.Pon(u"  ").Pon(pago.serie).Hasta(kFinSeriePago);
    linea.Pon(u"  ").Pon(pago.numero).Hasta(kFinNumeroPago);
    linea.Pon(u" ").Pon(pago.fecha).Hasta(kFinFechaPago);
    return linea.Pon(u"  ").Alinea(MontoConParentesis(pago.monto), kFinMontoPago).Texto();
}

QString LineasAnexo::FinDeCliente(const SumasAnexo& sumas) {
    Renglon linea;
    linea.Pon(u"     ").Pon(QString::number(sumas.comprobantes)).Pon(u" Registros      ");
    linea.Alinea(MontoConSigno(sumas.base), kFinBaseCliente);
    return linea.Pon(u"     ").Alinea(MontoConSigno(sumas.percepcion), kFinPercepcionCliente).Texto();
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
