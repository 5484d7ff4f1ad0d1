#include "reports/AnnexRows.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString SqlClientes(const ClaveDeclaracion& clave) {
    return u"Select rowid, %1 from %2 %3 Order by num_doc_per, tip_doc_per"_s.arg(
        ClienteImpreso::Columnas(), clave.Tabla(u"F518PCAB"_s), clave.Condicion());
}

/// `hijo` belongs to the declaration and the client of `padre`.
QString MismoCliente(const ClaveDeclaracion& clave, const QString& padre, const QString& hijo) {
    QString condicion;
    QStringList columnas{u"tip_doc_d"_s, u"doc_id_d"_s, u"periodo"_s, u"formulario"_s};
    if (clave.enviada)
        columnas.append(u"correl"_s);
    columnas.append({u"tip_doc_per"_s, u"num_doc_per"_s});
    for (const QString& columna : columnas)
        condicion += u" AND %1.%3 = %2.%3"_s.arg(padre, hijo, columna);
    return condicion.sliced(u" AND "_s.size());
}

/// The clients as the outer table: only so do the rows under them come out client by client. The order is that of
/// entry within a client.
QString SqlDesdeClientes(const ClaveDeclaracion& clave, const QString& comprobantes) {
    return u" FROM (SELECT rowid AS fila, * FROM %1 %2) AS c CROSS JOIN %3 AS d"_s.arg(
        clave.Tabla(u"F518PCAB"_s), clave.Condicion(), clave.Tabla(comprobantes));
}

QString SqlComprobantes(const ClaveDeclaracion& clave, const QString& tabla, const QString& tipo) {
    return u"SELECT c.fila, d.rowid, d.num_serie_cp, d.num_cp, d.fec_emision_cp, d.mto_base_p, d.por_tasa_p, "
           "d.mto_imp_p, d.cp_fact, d.lista_clie, d.med_pago, "_s +
           tipo + SqlDesdeClientes(clave, tabla) + u" WHERE "_s + MismoCliente(clave, u"c"_s, u"d"_s) +
           u" ORDER BY c.num_doc_per, c.tip_doc_per, d.rowid"_s;
}

QString SqlPagos(const ClaveDeclaracion& clave) {
    return u"SELECT d.rowid, p.rowid, p.tip_doc_detcp, p.num_serie_detcp, p.num_detcp, p.fec_emis_detcp, p.mto_detcp"_s +
           SqlDesdeClientes(clave, u"F518PDET"_s) + u" CROSS JOIN "_s + clave.Tabla(u"F518PDETCP"_s) + u" AS p WHERE "_s +
           MismoCliente(clave, u"c"_s, u"d"_s) + u" AND "_s + MismoCliente(clave, u"d"_s, u"p"_s) +
           u" AND p.num_serie_cp = d.num_serie_cp AND p.num_cp = d.num_cp"
           " ORDER BY c.num_doc_per, c.tip_doc_per, d.rowid, p.rowid"_s;
}

} // namespace

FilasHijas::FilasHijas(Base& base, const QString& sql, const QVariantList& valores)
    : m_filas(base.Lee(sql, valores)), m_hay(m_filas.Siguiente()) {}

bool FilasHijas::Siguiente(qint64 padre) {
    if (m_hay && m_entregada)
        m_hay = m_filas.Siguiente();
    m_entregada = m_hay && m_filas.Entero(0) == padre;
    return m_entregada;
}

FilasAnexo::FilasAnexo(Base& base, const ClaveDeclaracion& clave)
    : m_clientes(base.Lee(SqlClientes(clave), clave.Valores())),
      m_comprobantes(base, SqlComprobantes(clave, u"F518PDET"_s, u"''"_s), clave.Valores()),
      m_pagos(base, SqlPagos(clave), clave.Valores()),
      m_contados(base, SqlComprobantes(clave, u"F518PDETVC"_s, u"d.tip_cp"_s), clave.Valores()) {}

bool FilasAnexo::SiguienteCliente() {
    if (!m_clientes.Siguiente())
        return false;
    m_filaCliente = m_clientes.Entero(0);
    m_cliente = ClienteImpreso::De(m_clientes, 1);
    return true;
}

namespace {

ComprobanteImpreso ComprobanteDe(const Registros& fila) {
    enum { Serie = 2, Numero, Fecha, MontoBase, Tasa, MontoImp, CpFact, ListaClie, MedPago, TipCp };
    return {fila.Texto(Serie), fila.Texto(Numero),   fila.Texto(Fecha),  fila.Texto(MontoBase), fila.Texto(Tasa),
            fila.Texto(MontoImp), fila.Texto(CpFact), fila.Texto(ListaClie), fila.Texto(MedPago), fila.Texto(TipCp)};
}

} // namespace

ComprobanteImpreso FilasAnexo::Comprobante() const {
    return ComprobanteDe(m_comprobantes.Fila());
}

ComprobanteImpreso FilasAnexo::Contado() const {
    return ComprobanteDe(m_contados.Fila());
}

PagoImpreso FilasAnexo::Pago() const {
    enum { Tipo = 2, Serie, Numero, Fecha, Monto };
    const Registros& fila = m_pagos.Fila();
    return {fila.Texto(Tipo), fila.Texto(Serie), fila.Texto(Numero), fila.Texto(Fecha), fila.Texto(Monto)};
}

} // namespace xa518
