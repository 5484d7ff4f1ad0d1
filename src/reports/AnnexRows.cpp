#include "reports/AnnexRows.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

// The first columns of vouchers tell their client and themselves; the first of payment vouchers, their voucher.
enum ColumnaComprobante {
    NumeroCliente,
    TipoCliente,
    FilaPropia,
    Serie,
    Numero,
    Fecha,
    MontoBase,
    Tasa,
    MontoImp,
    CpFact,
    ListaClie,
    MedPago,
    TipCp
};
enum ColumnaPago { FilaComprobante, TipoPago, SeriePago, NumeroPago, FechaPago, MontoPago };

QString SqlClientes(const ClaveDeclaracion& clave) {
    return u"Select %1 from %2 %3 Order by num_doc_per, tip_doc_per"_s.arg(
        ClienteImpreso::Columnas(), clave.Tabla(u"F518PCAB"_s), clave.Condicion());
}

QString SqlComprobantes(const ClaveDeclaracion& clave, const QString& tabla, const QString& tipo) {
    return u"SELECT num_doc_per, tip_doc_per, rowid, num_serie_cp, num_cp, fec_emision_cp, mto_base_p, por_tasa_p, "
           "mto_imp_p, cp_fact, lista_clie, med_pago, %1 FROM %2 %3 ORDER BY num_doc_per, tip_doc_per, rowid"_s.arg(
               tipo, clave.Tabla(tabla), clave.Condicion());
}

/// From the vouchers, so that the payment vouchers come out in their order.
QString SqlPagos(const ClaveDeclaracion& clave) {
    QStringList columnas{u"tip_doc_d"_s, u"doc_id_d"_s, u"periodo"_s, u"formulario"_s, u"tip_doc_per"_s,
                         u"num_doc_per"_s, u"num_serie_cp"_s, u"num_cp"_s};
    if (clave.enviada)
        columnas.append(u"correl"_s);
    QStringList iguales;
    for (const QString& columna : columnas)
        iguales.append(u"p.%1 = d.%1"_s.arg(columna));
    return u"SELECT d.rowid, p.tip_doc_detcp, p.num_serie_detcp, p.num_detcp, p.fec_emis_detcp, p.mto_detcp "
           "FROM (SELECT rowid, * FROM %1 %2) AS d CROSS JOIN %3 AS p WHERE %4 "
           "ORDER BY d.num_doc_per, d.tip_doc_per, d.rowid, p.rowid"_s.arg(
               clave.Tabla(u"F518PDET"_s), clave.Condicion(), clave.Tabla(u"F518PDETCP"_s), iguales.join(u" AND "_s));
}

/// As the tables compare texts: code by code, A to Z as a to z.
std::strong_ordering ComparaSinCaja(QStringView a, QStringView b) {
    const auto minuscula = [](QChar c) { return c >= u'A' && c <= u'Z' ? char16_t(c.unicode() + 32) : c.unicode(); };
    return std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(),
        [&](QChar x, QChar y) -> std::strong_ordering { return minuscula(x) <=> minuscula(y); });
}

ComprobanteImpreso ComprobanteDe(const Registros& fila) {
    return {fila.Texto(Serie),    fila.Texto(Numero), fila.Texto(Fecha),     fila.Texto(MontoBase), fila.Texto(Tasa),
            fila.Texto(MontoImp), fila.Texto(CpFact), fila.Texto(ListaClie), fila.Texto(MedPago),   fila.Texto(TipCp)};
}

} // namespace

FilasEnPaso::FilasEnPaso(Base& base, const QString& sql, const QVariantList& valores)
    : m_filas(base.Lee(sql, valores)), m_hay(m_filas.Siguiente()) {}

FilasAnexo::FilasAnexo(Base& base, const ClaveDeclaracion& clave)
    : m_clientes(base.Lee(SqlClientes(clave), clave.Valores())),
      m_comprobantes(base, SqlComprobantes(clave, u"F518PDET"_s, u"''"_s), clave.Valores()),
      m_pagos(base, SqlPagos(clave), clave.Valores()),
      m_contados(base, SqlComprobantes(clave, u"F518PDETVC"_s, u"tip_cp"_s), clave.Valores()) {}

bool FilasAnexo::SiguienteCliente() {
    if (!m_clientes.Siguiente())
        return false;
    m_cliente = ClienteImpreso::De(m_clientes, 0);
    return true;
}

std::strong_ordering FilasAnexo::RespectoDelCliente(const FilasEnPaso& filas) const {
    const std::strong_ordering porNumero = ComparaSinCaja(filas.Fila().Texto(NumeroCliente), m_cliente.numero);
    return porNumero != 0 ? porNumero : filas.Fila().Entero(TipoCliente) <=> m_cliente.tipoDoc;
}

/// The payment vouchers of one that is passed over go with it.
void FilasAnexo::DejaComprobante() {
    while (SiguientePago()) {
    }
    m_comprobantes.Avanza();
}

bool FilasAnexo::SiguienteComprobante() {
    if (m_comprobantes.entregada)
        DejaComprobante();
    while (m_comprobantes.Hay() && RespectoDelCliente(m_comprobantes) < 0)
        DejaComprobante();
    m_comprobantes.entregada = m_comprobantes.Hay() && RespectoDelCliente(m_comprobantes) == 0;
    return m_comprobantes.entregada;
}

bool FilasAnexo::SiguienteContado() {
    if (m_contados.entregada)
        m_contados.Avanza();
    while (m_contados.Hay() && RespectoDelCliente(m_contados) < 0)
        m_contados.Avanza();
    m_contados.entregada = m_contados.Hay() && RespectoDelCliente(m_contados) == 0;
    return m_contados.entregada;
}

bool FilasAnexo::SiguientePago() {
    if (m_pagos.entregada)
        m_pagos.Avanza();
    m_pagos.entregada = m_pagos.Hay() && m_pagos.Fila().Entero(FilaComprobante) == m_comprobantes.Fila().Entero(FilaPropia);
    return m_pagos.entregada;
}

ComprobanteImpreso FilasAnexo::Comprobante() const {
    return ComprobanteDe(m_comprobantes.Fila());
}

ComprobanteImpreso FilasAnexo::Contado() const {
    return ComprobanteDe(m_contados.Fila());
}

PagoImpreso FilasAnexo::Pago() const {
    const Registros& fila = m_pagos.Fila();
    return {fila.Texto(TipoPago), fila.Texto(SeriePago), fila.Texto(NumeroPago), fila.Texto(FechaPago),
            fila.Texto(MontoPago)};
}

} // namespace xa518
