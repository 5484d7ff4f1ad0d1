#include "form518/WorkPayments.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPagos = u"TMPF518PDETCP"_s;
const QString kDeSuComprobante = u" WHERE TIP_DOC_PER = ? AND NUM_DOC_PER = ? AND NUM_SERIE_CP = ? AND NUM_CP = ?"_s;
const QString kDelPago = kDeSuComprobante + u" AND TIP_DOC_DETCP = ? AND NUM_SERIE_DETCP = ? AND NUM_DETCP = ?"_s;

QVariantList ValoresDelComprobante(const ClaveComprobante& clave) {
    return {clave.cliente.tipoDoc, clave.cliente.numero, clave.serie, clave.numero};
}

QVariantList Valores(const ClavePago& clave) {
    return ValoresDelComprobante(clave.comprobante) << clave.tipo << clave.serie << clave.numero;
}

} // namespace

QString PagosTrabajo::SqlDeComprobante() {
    return u"SELECT MID(B.FUNCION,1,30) AS TIP_CP, A.NUM_SERIE_DETCP,  A.NUM_DETCP, A.FEC_EMIS_DETCP, "
           "A.TIP_DOC_DETCP, A.MTO_DETCP  FROM TMPF518PDETCP AS A, PARAM AS B  WHERE A.TIP_DOC_PER=? AND "
           " A.NUM_DOC_PER=? AND  A.NUM_SERIE_CP=? AND  A.NUM_CP=? AND  B.NUMERO='233' AND "
           "VAL(B.ARGUMENTO) = VAL(A.TIP_DOC_DETCP)  ORDER BY A.rowid"_s;
}

QString PagosTrabajo::SqlDeNinguno() {
    return u"SELECT * FROM TMPF518PDETCP WHERE NUM_SERIE_CP='XXXX'"_s;
}

bool PagosTrabajo::Existe(const ClavePago& clave) const {
    return m_base->Lee(u"SELECT * FROM TMPF518PDETCP"_s + kDelPago, Valores(clave)).Siguiente();
}

void PagosTrabajo::Agrega(const ClavePago& clave, const QString& fecha, const QString& monto) {
    Registro fila(m_base->Describe(kPagos));
    fila.Pon(u"tip_doc_per", clave.comprobante.cliente.tipoDoc)
        .Pon(u"num_doc_per", clave.comprobante.cliente.numero)
        .Pon(u"num_serie_cp", clave.comprobante.serie)
        .Pon(u"num_cp", clave.comprobante.numero)
        .Pon(u"tip_doc_detcp", clave.tipo)
        .Pon(u"num_serie_detcp", clave.serie)
        .Pon(u"num_detcp", clave.numero)
        .Pon(u"fec_emis_detcp", fecha)
        .Pon(u"mto_detcp", monto);
    m_base->Agrega(fila);
}

void PagosTrabajo::Modifica(const ClavePago& clave, const QString& fecha, const QString& monto) {
    std::optional<Registro> fila = m_base->Busca(kPagos, kDelPago, Valores(clave));
    if (!fila)
        return;
    fila->Pon(u"fec_emis_detcp", fecha).Pon(u"mto_detcp", monto);
    m_base->Actualiza(*fila, kDelPago, Valores(clave));
}

void PagosTrabajo::Borra(const ClavePago& clave) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s + kDelPago, Valores(clave));
}

void PagosTrabajo::BorraDe(const ClaveComprobante& comprobante) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP "_s + kDeSuComprobante, ValoresDelComprobante(comprobante));
}

bool PagosTrabajo::SoloNotasDeCredito(const ClaveComprobante& comprobante) const {
    Registros filas =
        m_base->Lee(u"SELECT * FROM TMPF518PDETCP"_s + kDeSuComprobante, ValoresDelComprobante(comprobante));
    const int tipo = filas.Columna(u"tip_doc_detcp");
    while (filas.Siguiente()) {
        if (filas.Texto(tipo) != u"07")
            return false;
    }
    return true;
}

} // namespace xa518
