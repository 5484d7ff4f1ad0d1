#include "form518/WorkClients.h"

#include "data/Base.h"
#include "values/Decimal.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kClientes = u"TMPF518PCAB"_s;
const QString kDelCliente = u" WHERE TIP_DOC_PER = ? AND NUM_DOC_PER=?"_s;

QVariantList Valores(const ClaveCliente& cliente) {
    return {cliente.tipoDoc, cliente.numero};
}

void PonNombres(Registro& fila, const NombresCliente& nombres) {
    if (nombres.empresa) {
        fila.Pon(u"des_razon", nombres.razon);
        return;
    }
    fila.Pon(u"des_razon", u" "_s)
        .Pon(u"des_apellido_p", nombres.apellidoP)
        .Pon(u"des_apellido_m", nombres.apellidoM)
        .Pon(u"des_nombres", nombres.nombres);
}

void PonTotales(Registro& fila, const TotalesCliente& totales) {
    fila.Pon(u"ctd_docs", totales.ctdDocs).Pon(u"mto_base_p", totales.base).Pon(u"mto_imp_p", totales.percepcion);
}

QString SinNegativos(const QString& suma) {
    return SignoDelValor(suma) < 0 ? u"0"_s : suma;
}

} // namespace

bool ClientesTrabajo::Existe(const ClaveCliente& cliente) const {
    return m_base->Lee(u"SELECT * FROM TMPF518PCAB "_s + kDelCliente, Valores(cliente)).Siguiente();
}

void ClientesTrabajo::Agrega(const ClaveCliente& cliente, const NombresCliente& nombres,
                             const TotalesCliente& totales) {
    Registro fila(m_base->Describe(kClientes));
    fila.Pon(u"tip_doc_per", cliente.tipoDoc).Pon(u"num_doc_per", cliente.numero);
    PonNombres(fila, nombres);
    PonTotales(fila, totales);
    m_base->Agrega(fila);
}

void ClientesTrabajo::Modifica(const ClaveCliente& cliente, const NombresCliente& nombres,
                               const TotalesCliente& totales) {
    std::optional<Registro> fila = m_base->Busca(kClientes, kDelCliente, Valores(cliente));
    if (!fila)
        return;
    PonNombres(*fila, nombres);
    PonTotales(*fila, totales);
    m_base->Actualiza(*fila, kDelCliente, Valores(cliente));
}

void ClientesTrabajo::EscribeTotales(const ClaveCliente& cliente, const TotalesCliente& totales) {
    std::optional<Registro> fila = m_base->Busca(kClientes, kDelCliente, Valores(cliente));
    if (!fila)
        return;
    PonTotales(*fila, totales);
    m_base->Actualiza(*fila, kDelCliente, Valores(cliente));
}

void ClientesTrabajo::Borra(const ClaveCliente& cliente) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB "_s + kDelCliente, Valores(cliente));
}

void ClientesTrabajo::BarreSinCliente(const ClaveCliente& cliente) {
    if (!Existe(cliente))
        m_base->Ejecuta(u"DELETE * FROM TMPF518PDET "_s + kDelCliente, Valores(cliente));
}

ClientesTrabajo::Sumas ClientesTrabajo::SumaComprobantes(const ClaveCliente& cliente) const {
    Registros fila = m_base->Lee(u"SELECT SUM(MTO_BASE_P * 1) as TOTAL_BASE, SUM(MTO_IMP_P * 1) as TOTAL_IMP "
                                 "FROM TMPF518PDET"_s +
                                     kDelCliente,
                                 Valores(cliente));
    if (!fila.Siguiente())
        return {};
    return {SinNegativos(fila.Texto(u"TOTAL_BASE")), SinNegativos(fila.Texto(u"TOTAL_IMP"))};
}

} // namespace xa518
