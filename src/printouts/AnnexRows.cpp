#include "printouts/AnnexRows.h"

#include "form518/DetailColumns.h"

#include <algorithm>
#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum Columna { NumeroCliente, TipoCliente, Campos };

/// Stands between the fields of a row. No text of the tables holds it.
constexpr char16_t kEntreCampos = 31;

/// Payment vouchers of one client that are kept in memory.
constexpr size_t kPagosMaximos = 20'000;

/// The columns as one text, null as the empty one: each value that leaves the engine costs more than its reading.
QString Unidas(const QStringList& columnas) {
    const QStringList lugares(columnas.size(), u"%s"_s);
    return u"printf('"_s + lugares.join(QChar(kEntreCampos)) + u"', "_s + columnas.join(u", "_s) + u')';
}

QString UnidasComprobante(const QString& tipo) {
    using enum DatoComprobante;
    return Unidas(
        ColumnasDe<DatoComprobante>({Serie, Numero, Fecha, MontoBase, Tasa, Percepcion, CpFact, ListaClie, MedPago}) +
        QStringList{tipo});
}

QString UnidasPago() {
    using enum DatoPago;
    return Unidas(ColumnasDe<DatoPago>({SerieCp, NumeroCp, Tipo, Serie, Numero, Fecha, Monto}));
}

template <size_t N>
std::array<QStringView, N> Separa(QStringView fila) {
    std::array<QStringView, N> campos;
    for (QStringView& campo : campos) {
        const qsizetype separador = fila.indexOf(kEntreCampos);
        const qsizetype fin = separador < 0 ? fila.size() : separador;
        campo = fila.first(fin);
        fila = fila.sliced(std::min(fin + 1, fila.size()));
    }
    return campos;
}

/// Series and number of the voucher, with which its rows and those of its payment vouchers begin.
QStringView ClaveComprobante(QStringView fila) {
    return fila.first(std::max<qsizetype>(fila.indexOf(kEntreCampos, fila.indexOf(kEntreCampos) + 1), 0));
}

/// As the tables compare texts: code by code, A to Z as a to z.
std::strong_ordering ComparaSinCaja(QStringView a, QStringView b) {
    const auto minuscula = [](QChar c) { return c >= u'A' && c <= u'Z' ? char16_t(c.unicode() + 32) : c.unicode(); };
    return std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(),
        [&](QChar x, QChar y) -> std::strong_ordering { return minuscula(x) <=> minuscula(y); });
}

bool DeComprobanteAnterior(const QString& a, const QString& b) {
    return std::is_lt(ComparaSinCaja(ClaveComprobante(a), ClaveComprobante(b)));
}

/// The order of the annex: by number, then by type.
QString PorCliente() {
    return ListaDe<DatoCliente>({DatoCliente::NumDoc, DatoCliente::TipoDoc});
}

QString SqlClientes(const ClaveDeclaracion& clave) {
    return u"Select %1 from %2 %3 Order by %4"_s.arg(ClienteImpreso::Columnas(), clave.Tabla(u"F518PCAB"_s),
                                                     clave.Condicion(), PorCliente());
}

QString SqlEnPaso(const QString& unidas, const QString& tabla, const QString& condicion) {
    return u"SELECT %1, %2 FROM %3 %4 ORDER BY %1, rowid"_s.arg(PorCliente(), unidas, tabla, condicion);
}

} // namespace

FilasEnPaso::FilasEnPaso(Base& base, const QString& sql, const QVariantList& valores)
    : m_filas(base.Lee(sql, valores)), m_hay(m_filas.Siguiente()) {}

std::strong_ordering FilasEnPaso::Respecto(const ClienteImpreso& cliente) const {
    const std::strong_ordering porNumero = ComparaSinCaja(m_filas.Texto(NumeroCliente), cliente.numero);
    return std::is_neq(porNumero) ? porNumero : m_filas.Entero(TipoCliente) <=> cliente.tipoDoc;
}

bool FilasEnPaso::Siguiente(const ClienteImpreso& cliente) {
    if (m_entregada)
        m_hay = m_filas.Siguiente();
    m_entregada = false;
    while (m_hay) {
        const std::strong_ordering orden = Respecto(cliente);
        m_entregada = std::is_eq(orden);
        if (std::is_gteq(orden))
            break;
        m_hay = m_filas.Siguiente();
    }
    return m_entregada;
}

FilasAnexo::FilasAnexo(Base& base, const ClaveDeclaracion& clave)
    : m_base(&base)
    , m_clave(clave)
    , m_clientes(base.Lee(SqlClientes(clave), clave.Valores()))
    , m_comprobantes(base, SqlEnPaso(UnidasComprobante(u"''"_s), clave.Tabla(u"F518PDET"_s), clave.Condicion()),
                     clave.Valores())
    , m_pagos(base, SqlEnPaso(UnidasPago(), clave.Tabla(u"F518PDETCP"_s), clave.CondicionSinTipo()), clave.Valores())
    , m_contados(base,
                 SqlEnPaso(UnidasComprobante(ColumnaDe(DatoComprobante::TipCp)), clave.Tabla(u"F518PDETVC"_s),
                           clave.Condicion()),
                 clave.Valores()) {}

bool FilasAnexo::SiguienteCliente() {
    if (!m_clientes.Siguiente())
        return false;
    m_cliente = ClienteImpreso::De(m_clientes, 0);
    CargaPagos();
    return true;
}

void FilasAnexo::CargaPagos() {
    m_delCliente.clear();
    m_sonDemasiados = false;
    while (m_pagos.Siguiente(m_cliente)) {
        m_sonDemasiados = m_delCliente.size() >= kPagosMaximos;
        if (!m_sonDemasiados)
            m_delCliente.push_back(m_pagos.Texto(Campos));
    }
    std::stable_sort(m_delCliente.begin(), m_delCliente.end(), DeComprobanteAnterior);
}

bool FilasAnexo::SiguienteComprobante() {
    if (!m_comprobantes.Siguiente(m_cliente))
        return false;
    m_comprobante = m_comprobantes.Texto(Campos);
    EligePagos();
    return true;
}

void FilasAnexo::EligePagos() {
    m_aparte.reset();
    if (m_sonDemasiados)
        m_aparte.emplace(PidePagos());
    else
        std::tie(m_siguiente, m_fin) =
            std::equal_range(m_delCliente.cbegin(), m_delCliente.cend(), m_comprobante, DeComprobanteAnterior);
}

Registros FilasAnexo::PidePagos() const {
    const auto [serie, numero] = Separa<2>(m_comprobante);
    return m_base->Lee(
        u"SELECT %1 FROM %2 %3 AND tip_doc_d = 6 AND %4 ORDER BY rowid"_s.arg(
            UnidasPago(), m_clave.Tabla(u"F518PDETCP"_s), m_clave.CondicionSinTipo(),
            IgualesA<DatoPago>({DatoPago::TipoDoc, DatoPago::NumDoc, DatoPago::SerieCp, DatoPago::NumeroCp})),
        m_clave.Valores() + QVariantList{m_cliente.tipoDoc, m_cliente.numero, serie.toString(), numero.toString()});
}

bool FilasAnexo::SiguientePago() {
    if (m_aparte) {
        if (!m_aparte->Siguiente())
            return false;
        m_pago = m_aparte->Texto(0);
        return true;
    }
    if (m_siguiente == m_fin)
        return false;
    m_pago = *m_siguiente++;
    return true;
}

bool FilasAnexo::SiguienteContado() {
    if (!m_contados.Siguiente(m_cliente))
        return false;
    m_comprobante = m_contados.Texto(Campos);
    return true;
}

ComprobanteImpreso FilasAnexo::Comprobante() const {
    const auto [serie, numero, fecha, base, tasa, percepcion, credito, lista, medio, tipo] = Separa<10>(m_comprobante);
    return {.serie = serie,
            .numero = numero,
            .fecha = fecha,
            .base = base,
            .tasa = tasa,
            .percepcion = percepcion,
            .creditoFiscal = credito,
            .listaClientes = lista,
            .medioPago = medio,
            .tipo = tipo};
}

PagoImpreso FilasAnexo::Pago() const {
    const auto [serieCp, numeroCp, tipo, serie, numero, fecha, monto] = Separa<7>(m_pago);
    return {.tipo = tipo, .serie = serie, .numero = numero, .fecha = fecha, .monto = monto};
}

} // namespace xa518
