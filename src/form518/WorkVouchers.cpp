#include "form518/WorkVouchers.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/WorkPayments.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kComprobantes = u"TMPF518PDET"_s;
const QString kDelComprobante =
    u" WHERE TIP_DOC_PER=? AND NUM_DOC_PER=? AND NUM_SERIE_CP=? AND NUM_CP=? AND TIP_CP=?"_s;

QVariantList Valores(const ClaveComprobante& clave) {
    return {clave.cliente.tipoDoc, clave.cliente.numero, clave.serie, clave.numero, clave.tipCp};
}

QVariant NuloSiVacio(const QString& texto) {
    return texto.isEmpty() ? QVariant() : QVariant(texto);
}

void PonCampos(Registro& fila, const CamposComprobante& campos) {
    if (!campos.cpFact.isEmpty())
        fila.Pon(u"cp_fact", campos.cpFact);
    fila.Pon(u"lista_clie", campos.listaClie)
        .Pon(u"med_pago", campos.medPago)
        .Pon(u"fec_emision_cp", campos.fecha)
        .Pon(u"mto_base_p", NuloSiVacio(campos.base))
        .Pon(u"mto_imp_p", NuloSiVacio(campos.percepcion))
        .Pon(u"por_tasa_p", campos.tasa);
}

} // namespace

QString ComprobantesTrabajo::SqlDeCliente() {
    return u"SELECT NUM_SERIE_CP, NUM_CP, FEC_EMISION_CP, MTO_BASE_P, POR_TASA_P, MTO_IMP_P, CP_FACT, LISTA_CLIE, "
           "MED_PAGO, TIP_CP,  (Select Left(funcion,50) FROM param Where numero='233' "
           "And param.argumento=TMPF518PDET.TIP_CP  AND MID(FUNCION,64,1)='1' ) as des_cdp "
           "FROM TMPF518PDET WHERE TIP_DOC_PER =? AND NUM_DOC_PER=? ORDER BY rowid"_s;
}

bool ComprobantesTrabajo::Existe(const ClaveComprobante& clave) const {
    return m_base->Lee(u"SELECT * FROM TMPF518PDET"_s + kDelComprobante, Valores(clave)).Siguiente();
}

void ComprobantesTrabajo::Agrega(const ClaveComprobante& clave, const CamposComprobante& campos) {
    Registro fila(m_base->Describe(kComprobantes));
    fila.Pon(u"tip_doc_per", clave.cliente.tipoDoc)
        .Pon(u"num_doc_per", clave.cliente.numero)
        .Pon(u"num_serie_cp", clave.serie)
        .Pon(u"num_cp", clave.numero)
        .Pon(u"tip_cp", clave.tipCp);
    PonCampos(fila, campos);
    m_base->Agrega(fila);
}

void ComprobantesTrabajo::Modifica(const ClaveComprobante& clave, const CamposComprobante& campos) {
    std::optional<Registro> fila = m_base->Busca(kComprobantes, kDelComprobante, Valores(clave));
    if (!fila)
        return;
    PonCampos(*fila, campos);
    m_base->Actualiza(*fila, kDelComprobante, Valores(clave));
}

void ComprobantesTrabajo::Borra(const ClaveComprobante& clave) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s + kDelComprobante, Valores(clave));
}

void ComprobantesTrabajo::Elimina(const ClaveComprobante& clave) {
    Transaccion transaccion = m_base->Comienza();
    if (clave.tipCp.trimmed().isEmpty())
        PagosTrabajo(*m_base).BorraDe(clave);
    Borra(clave);
    transaccion.Confirma();
}

void ComprobantesTrabajo::BarreAlSalir(const ClaveComprobante& clave, bool esNuevo, bool sinPagos) {
    const bool registrado = Existe(clave);
    if (!registrado)
        PagosTrabajo(*m_base).BorraDe(clave);
    else if (!esNuevo && sinPagos)
        Borra(clave);
}

} // namespace xa518
