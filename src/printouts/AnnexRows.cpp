#include "printouts/AnnexRows.h"

#include "form518/DetailColumns.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Rows of one client and one table that are kept in memory.
constexpr size_t kFilasMaximas = 20'000;

QStringList ColumnasDeComprobante() {
    using enum DatoComprobante;
    return ColumnasDe<DatoComprobante>(
        {NumDoc, Serie, Numero, Fecha, MontoBase, Tasa, Percepcion, CpFact, ListaClie, MedPago});
}

QStringList ColumnasDePago() {
    using enum DatoPago;
    return ColumnasDe<DatoPago>({NumDoc, SerieCp, NumeroCp, Tipo, Serie, Numero, Fecha, Monto});
}

qint64 Entero(QStringView digitos) {
    qint64 valor = 0;
    for (const QChar c : digitos)
        valor = 10 * valor + (c.unicode() - u'0');
    return valor;
}

FilaAnexo FilaDe(const Registros& filas) {
    FilaUnida campos(filas.Valor(0).toByteArray());
    const qint64 alta = Entero(campos.Campo(FilaAnexo::Alta));
    return {alta, std::move(campos)};
}

/// By series and number of the voucher.
bool PorComprobante(const FilaAnexo& a, const FilaAnexo& b) {
    const auto compara = [&](FilaAnexo::Campo campo) {
        return ComparaSinCaja(a.campos.Campo(campo), b.campos.Campo(campo));
    };
    const std::strong_ordering porSerie = compara(FilaAnexo::Serie);
    return std::is_lt(std::is_neq(porSerie) ? porSerie : compara(FilaAnexo::Numero));
}

bool PorAlta(const FilaAnexo& a, const FilaAnexo& b) {
    return a.alta < b.alta;
}

/// By number, then by type.
QString SqlClientes(const Base& base, const ClaveDeclaracion& clave) {
    return u"Select %1 from %2 %3 Order by %4"_s.arg(base.SqlUnidas(ClienteImpreso::Columnas()),
                                                     clave.Tabla(u"F518PCAB"_s), clave.Condicion(),
                                                     ListaDe<DatoCliente>({DatoCliente::NumDoc, DatoCliente::TipoDoc}));
}

} // namespace

FilasEnPaso::FilasEnPaso(Base& base, const QString& sql, const QVariantList& valores)
    : m_filas(base.Lee(sql, valores)) {
    Avanza();
}

void FilasEnPaso::Avanza() {
    m_hay = m_filas.Siguiente();
    m_fila = m_hay ? FilaDe(m_filas) : FilaAnexo();
}

std::strong_ordering FilasEnPaso::Respecto(QStringView cliente) const {
    const QStringView numero = m_fila.campos.Campo(FilaAnexo::Cliente);
    return numero == cliente ? std::strong_ordering::equal : ComparaSinCaja(numero, cliente);
}

bool FilasEnPaso::Siguiente(QStringView cliente) {
    if (m_entregada)
        Avanza();
    m_entregada = false;
    while (m_hay) {
        const std::strong_ordering orden = Respecto(cliente);
        m_entregada = std::is_eq(orden);
        if (std::is_gteq(orden))
            break;
        Avanza();
    }
    return m_entregada;
}

void FilasDeCliente::Carga(FilasEnPaso& lectura, QStringView cliente) {
    m_filas.clear();
    m_sonDemasiadas = false;
    while (lectura.Siguiente(cliente)) {
        if (m_sonDemasiadas)
            continue;
        m_filas.push_back(std::move(lectura.Fila()));
        m_sonDemasiadas = m_filas.size() > kFilasMaximas;
    }
    if (m_sonDemasiadas)
        m_filas.clear();
}

void FilasPorAlta::Empieza(Tramo filas) {
    m_aparte.reset();
    std::sort(filas.begin(), filas.end(), PorAlta);
    m_quedan = filas;
}

void FilasPorAlta::Empieza(Registros filas) {
    m_aparte.reset();
    m_aparte.emplace(std::move(filas));
}

bool FilasPorAlta::Siguiente() {
    if (m_aparte) {
        if (!m_aparte->Siguiente())
            return false;
        m_leida = FilaDe(*m_aparte);
        m_fila = &m_leida;
        return true;
    }
    if (m_quedan.empty())
        return false;
    m_fila = &m_quedan.front();
    m_quedan = m_quedan.subspan(1);
    return true;
}

FilasAnexo::FilasAnexo(Base& base, const ClaveDeclaracion& clave)
    : m_base(&base), m_clave(clave), m_clientes(base.Lee(SqlClientes(base, clave), clave.Valores())) {}

QStringList FilasAnexo::Columnas(Clase clase) {
    switch (clase) {
    case Clase::Comprobantes: return ColumnasDeComprobante();
    case Clase::Contados: return ColumnasDeComprobante() + QStringList{ColumnaDe(DatoComprobante::TipCp)};
    case Clase::Pagos: break;
    }
    return ColumnasDePago();
}

QString FilasAnexo::TablaDe(Clase clase) const {
    return m_clave.Tabla(clase == Clase::Comprobantes ? u"F518PDET"_s
                         : clase == Clase::Contados   ? u"F518PDETVC"_s
                                                      : u"F518PDETCP"_s);
}

/// Of the clients with a type of document.
QString FilasAnexo::SqlDe(Clase clase) const {
    const QString tabla = TablaDe(clase);
    const QString unidas = m_base->SqlUnidas(QStringList{m_base->NumeroDeFila(tabla)} + Columnas(clase));
    return u"SELECT %1 FROM %2 %3 AND %4"_s.arg(unidas, tabla, m_clave.Condicion(),
                                                IgualesA<DatoCliente>({DatoCliente::TipoDoc}));
}

/// In the order of the table's key, which the engine needn't make.
FilasEnPaso FilasAnexo::EnPaso(Clase clase, int tipoDoc) {
    using enum DatoComprobante;
    return {*m_base, SqlDe(clase) + u" ORDER BY "_s + ListaDe<DatoComprobante>({NumDoc, Serie, Numero}),
            m_clave.Valores() + QVariantList{tipoDoc}};
}

FilasAnexo::DeTipo& FilasAnexo::FilasDelTipo() {
    const int tipo = m_cliente.tipoDoc;
    auto lugar = m_tipos.find(tipo);
    if (lugar == m_tipos.end())
        lugar = m_tipos
                    .emplace(tipo, DeTipo{EnPaso(Clase::Comprobantes, tipo), EnPaso(Clase::Pagos, tipo),
                                          EnPaso(Clase::Contados, tipo)})
                    .first;
    return lugar->second;
}

bool FilasAnexo::SiguienteCliente() {
    if (!m_clientes.Siguiente())
        return false;
    m_cliente = ClienteImpreso::De(FilaUnida(m_clientes.Valor(0).toByteArray()));
    DeTipo& filas = FilasDelTipo();
    for (size_t clase = 0; clase < kClases; ++clase)
        m_delCliente[clase].Carga(filas[clase], m_cliente.numero);
    Empieza(Clase::Comprobantes, m_comprobantes);
    Empieza(Clase::Contados, m_contados);
    OrdenaPagos();
    return true;
}

void FilasAnexo::Empieza(Clase clase, FilasPorAlta& destino) {
    FilasDeCliente& filas = DelCliente(clase);
    if (filas.SonDemasiadas())
        destino.Empieza(PideDelCliente(clase, {}, {}));
    else
        destino.Empieza(filas.Filas());
}

Registros FilasAnexo::PideDelCliente(Clase clase, const QString& condicion, const QVariantList& valores) {
    return m_base->Lee(SqlDe(clase) + u" AND "_s + IgualesA<DatoCliente>({DatoCliente::NumDoc}) + condicion +
                           u" ORDER BY "_s + m_base->NumeroDeFila(TablaDe(clase)),
                       m_clave.Valores() + QVariantList{m_cliente.tipoDoc, m_cliente.numero} + valores);
}

/// The key has put them in order already, nearly always.
void FilasAnexo::OrdenaPagos() {
    std::vector<FilaAnexo>& pagos = DelCliente(Clase::Pagos).Filas();
    if (!std::is_sorted(pagos.begin(), pagos.end(), PorComprobante))
        std::sort(pagos.begin(), pagos.end(), PorComprobante);
}

bool FilasAnexo::SiguienteComprobante() {
    if (!m_comprobantes.Siguiente())
        return false;
    EligePagos();
    return true;
}

void FilasAnexo::EligePagos() {
    using enum DatoPago;
    FilasDeCliente& pagos = DelCliente(Clase::Pagos);
    if (pagos.SonDemasiadas()) {
        m_pagos.Empieza(PideDelCliente(
            Clase::Pagos, u" AND "_s + IgualesA<DatoPago>({SerieCp, NumeroCp}),
            {m_comprobantes.Campo(FilaAnexo::Serie).toString(), m_comprobantes.Campo(FilaAnexo::Numero).toString()}));
        return;
    }
    std::vector<FilaAnexo>& filas = pagos.Filas();
    const auto [desde, hasta] = std::equal_range(filas.begin(), filas.end(), m_comprobantes.Fila(), PorComprobante);
    m_pagos.Empieza({desde, hasta});
}

ComprobanteImpreso FilasAnexo::De(const FilasPorAlta& filas) {
    enum : size_t { Fecha = FilaAnexo::Resto, Base, Tasa, Percepcion, Credito, Lista, Medio, Tipo };
    return {.serie = filas.Campo(FilaAnexo::Serie),
            .numero = filas.Campo(FilaAnexo::Numero),
            .fecha = filas.Campo(Fecha),
            .base = filas.Campo(Base),
            .tasa = filas.Campo(Tasa),
            .percepcion = filas.Campo(Percepcion),
            .creditoFiscal = filas.Campo(Credito),
            .listaClientes = filas.Campo(Lista),
            .medioPago = filas.Campo(Medio),
            .tipo = filas.Campo(Tipo)};
}

PagoImpreso FilasAnexo::Pago() const {
    enum : size_t { Tipo = FilaAnexo::Resto, Serie, Numero, Fecha, Monto };
    return {.tipo = m_pagos.Campo(Tipo),
            .serie = m_pagos.Campo(Serie),
            .numero = m_pagos.Campo(Numero),
            .fecha = m_pagos.Campo(Fecha),
            .monto = m_pagos.Campo(Monto)};
}

} // namespace xa518
