#include "form518/WorkAdditions.h"

#include "data/Base.h"
#include "form518/WorkOrder.h"
#include "values/Format.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kTablaClientes = u"TMPF518PCAB"_s;
const QString kTablaComprobantes = u"TMPF518PDET"_s;
const QString kTablaPagos = u"TMPF518PDETCP"_s;

constexpr quint32 kEnTabla = 1;

QStringList ColumnasDeClientes() {
    using enum DatoCliente;
    return ColumnasDe<DatoCliente>({TipoDoc, NumDoc, Razon, ApellidoP, ApellidoM, Nombres});
}

QString SqlDe(const QString& tabla, const QStringList& columnas) {
    return u"SELECT %1 FROM %2"_s.arg(columnas.join(u", "_s), tabla);
}

ClaveCliente ClienteDeFila(const Registros& filas) {
    return {.tipoDoc = CodigoDocumento(static_cast<int>(filas.Entero(0))), .numero = filas.Texto(1)};
}

template <typename Numero>
void AgregaNumero(std::string& clave, Numero numero) {
    clave.append(reinterpret_cast<const char*>(&numero), sizeof numero);
}

void PonSiHay(FilasNuevas& filas, const std::optional<QString>& texto) {
    if (texto)
        filas.Pon(*texto);
    else
        filas.PonNulo();
}

void PonSinVacio(FilasNuevas& filas, const QString& texto) {
    if (texto.isEmpty())
        filas.PonNulo();
    else
        filas.Pon(texto);
}

} // namespace

void AltasTrabajo::Nuevas::Olvida(qint64 desdeLinea) {
    const auto desde = std::lower_bound(lineas.begin(), lineas.end(), desdeLinea);
    filas.Acorta(static_cast<size_t>(desde - lineas.begin()));
    lineas.erase(desde, lineas.end());
}

AltasTrabajo::Tablas::Tablas(Base& base)
    : clientes{FilasNuevas(base.Describe(kTablaClientes), ColumnasDeClientes()), {}}
    , comprobantes{FilasNuevas(base.Describe(kTablaComprobantes), ColumnasDe(DatosDeComprobantes())), {}}
    , pagos{FilasNuevas(base.Describe(kTablaPagos), ColumnasDe(DatosDePagos())), {}} {}

AltasTrabajo::AltasTrabajo(Base& base) : m_base(&base), m_nuevas(base), m_apartadas(base) {}

bool AltasTrabajo::Empieza() {
    const qint64 version = m_base->Version();
    if (m_version == version)
        return false;
    for (Nuevas* nuevas : m_nuevas.Cada())
        nuevas->Olvida(0);
    m_clientes = {};
    m_comprobantes = {};
    m_pagos = {};
    m_cobros = {};
    LeeClientes();
    LeeComprobantes();
    LeePagos();
    m_version = version;
    return true;
}

void AltasTrabajo::PonPisos() {
    const OrdenDeTrabajo orden(*m_base);
    m_apartadas.clientes.filas.PonPiso(orden.Piso(TablaDeClientes()));
    m_apartadas.comprobantes.filas.PonPiso(orden.Piso(TablaDeComprobantes()));
    m_apartadas.pagos.filas.PonPiso(orden.Piso(TablaDePagos()));
}

void AltasTrabajo::LeeClientes() {
    Registros filas = m_base->Lee(SqlDe(kTablaClientes, ColumnasDe(ClaveDeClientes())));
    while (filas.Siguiente())
        m_clientes.PonNumero(m_clientes.Pon(Clave(ClienteDeFila(filas))), kEnTabla);
}

void AltasTrabajo::LeeComprobantes() {
    const QStringList columnas = ColumnasDe(ClaveDeComprobantes()) +
                                 ColumnasDe<DatoComprobante>({DatoComprobante::Fecha, DatoComprobante::MontoBase});
    Registros filas = m_base->Lee(SqlDe(kTablaComprobantes, columnas));
    while (filas.Siguiente()) {
        const Lugar lugar = Pon({.cliente = ClienteDeFila(filas),
                                 .serie = filas.Texto(2),
                                 .numero = filas.Texto(3),
                                 .tipCp = filas.Texto(4)});
        m_comprobantes.PonNumero(lugar, PonCobro(filas.Texto(5), filas.Texto(6)));
    }
}

void AltasTrabajo::LeePagos() {
    Registros filas = m_base->Lee(SqlDe(kTablaPagos, ColumnasDe(ClaveDePagos())));
    while (filas.Siguiente()) {
        const ClavePago clave{
            .comprobante = {.cliente = ClienteDeFila(filas), .serie = filas.Texto(2), .numero = filas.Texto(3)},
            .tipo = filas.Texto(4),
            .serie = filas.Texto(5),
            .numero = filas.Texto(6)};
        m_pagos.Pon(Clave(clave, Pon(clave.comprobante)));
    }
}

const std::string& AltasTrabajo::Clave(const ClaveCliente& cliente) {
    m_clave.clear();
    AgregaNumero(m_clave, cliente.tipoDoc.Valor());
    AgregaAClave(m_clave, cliente.numero);
    return m_clave;
}

const std::string& AltasTrabajo::Clave(const ClaveComprobante& clave, Lugar cliente) {
    return ClaveBajo(cliente, {&clave.serie, &clave.numero, &clave.tipCp});
}

/// A payment hangs on the ordinary voucher of its key, whose type is the empty text.
const std::string& AltasTrabajo::Clave(const ClavePago& clave, Lugar comprobante) {
    return ClaveBajo(comprobante, {&clave.tipo, &clave.serie, &clave.numero});
}

const std::string& AltasTrabajo::ClaveBajo(Lugar padre, const std::array<const QString*, 3>& partes) {
    m_clave.clear();
    AgregaNumero(m_clave, padre);
    for (const QString* parte : partes)
        AgregaAClave(m_clave, *parte);
    return m_clave;
}

AltasTrabajo::Lugar AltasTrabajo::Busca(const ClaveComprobante& clave) {
    const Lugar cliente = m_clientes.Busca(Clave(clave.cliente));
    return cliente == MemoriaDeClaves::kNinguno ? cliente : m_comprobantes.Busca(Clave(clave, cliente));
}

AltasTrabajo::Lugar AltasTrabajo::Pon(const ClaveComprobante& clave) {
    const Lugar cliente = m_clientes.Pon(Clave(clave.cliente));
    return m_comprobantes.Pon(Clave(clave, cliente));
}

/// One for all vouchers of that day and amount. Returns its place and 1 more, so never 0.
quint32 AltasTrabajo::PonCobro(QStringView fecha, QStringView base) {
    m_clave.clear();
    AgregaUtf8(m_clave, fecha);
    const auto largo = static_cast<quint32>(m_clave.size());
    AgregaUtf8(m_clave, base);
    AgregaNumero(m_clave, largo);
    const Lugar lugar = m_cobros.Pon(m_clave);
    return lugar + 1;
}

bool AltasTrabajo::Existe(const ClaveCliente& cliente) {
    const Lugar lugar = m_clientes.Busca(Clave(cliente));
    return lugar != MemoriaDeClaves::kNinguno && m_clientes.Numero(lugar) == kEnTabla;
}

bool AltasTrabajo::Existe(const ClaveComprobante& clave) {
    const Lugar lugar = Busca(clave);
    return lugar != MemoriaDeClaves::kNinguno && m_comprobantes.Numero(lugar) != 0;
}

bool AltasTrabajo::Existe(const ClavePago& clave) {
    const Lugar comprobante = Busca(clave.comprobante);
    return comprobante != MemoriaDeClaves::kNinguno &&
           m_pagos.Busca(Clave(clave, comprobante)) != MemoriaDeClaves::kNinguno;
}

std::optional<AltasTrabajo::Cobro> AltasTrabajo::BuscaCobro(const ClaveComprobante& clave) {
    const Lugar lugar = Busca(clave);
    if (lugar == MemoriaDeClaves::kNinguno || m_comprobantes.Numero(lugar) == 0)
        return std::nullopt;
    const std::string_view texto = m_cobros.Texto(m_comprobantes.Numero(lugar) - 1);
    const size_t largos = texto.size() - sizeof(quint32);
    quint32 fecha = 0;
    std::copy_n(texto.data() + largos, sizeof fecha, reinterpret_cast<char*>(&fecha));
    return Cobro{.fecha = QString::fromUtf8(texto.data(), static_cast<qsizetype>(fecha)),
                 .base = MontoEscrito(QString::fromUtf8(texto.data() + fecha, static_cast<qsizetype>(largos - fecha)))};
}

void AltasTrabajo::Agrega(const ClaveCliente& cliente, const NombresCliente& nombres, qint64 linea) {
    m_clientes.PonNumero(m_clientes.Pon(Clave(cliente)), kEnTabla);
    FilasNuevas& filas = m_nuevas.clientes.filas;
    filas.Pon(cliente.tipoDoc.Valor()).Pon(cliente.numero);
    for (const auto* nombre : {&nombres.razon, &nombres.apellidoP, &nombres.apellidoM, &nombres.nombres})
        PonSiHay(filas, *nombre);
    filas.CierraFila();
    m_nuevas.clientes.lineas.push_back(linea);
}

/// In the order of `DatosDeComprobantes`.
void AltasTrabajo::Agrega(const ClaveComprobante& clave, const CamposComprobante& campos, qint64 linea) {
    m_comprobantes.PonNumero(Pon(clave), PonCobro(campos.fecha, campos.base.Texto()));
    FilasNuevas& filas = m_nuevas.comprobantes.filas;
    filas.Pon(clave.cliente.tipoDoc.Valor()).Pon(clave.cliente.numero).Pon(clave.serie).Pon(clave.numero);
    filas.Pon(clave.tipCp);
    PonSinVacio(filas, campos.cpFact);
    filas.Pon(campos.listaClie).Pon(campos.medPago).Pon(campos.fecha);
    PonSinVacio(filas, campos.base.Texto());
    PonSinVacio(filas, TextoDePercepcion(campos.percepcion));
    filas.Pon(campos.tasa);
    filas.CierraFila();
    m_nuevas.comprobantes.lineas.push_back(linea);
}

/// In the order of `DatosDePagos`.
void AltasTrabajo::Agrega(const ComprobanteDePago& pago, qint64 linea) {
    const ClaveComprobante& comprobante = pago.clave.comprobante;
    m_pagos.Pon(Clave(pago.clave, Pon(comprobante)));
    FilasNuevas& filas = m_nuevas.pagos.filas;
    filas.Pon(comprobante.cliente.tipoDoc.Valor()).Pon(comprobante.cliente.numero);
    filas.Pon(comprobante.serie).Pon(comprobante.numero);
    filas.Pon(pago.clave.tipo).Pon(pago.clave.serie).Pon(pago.clave.numero).Pon(pago.fecha).Pon(pago.monto.Texto());
    filas.CierraFila();
    m_nuevas.pagos.lineas.push_back(linea);
}

/// What is remembered of such rows stays, so that the tables have to be read again before the next one.
void AltasTrabajo::Olvida(qint64 desdeLinea) {
    for (Nuevas* nuevas : m_nuevas.Cada()) {
        if (nuevas->lineas.empty() || nuevas->lineas.back() < desdeLinea)
            continue;
        nuevas->Olvida(desdeLinea);
        m_version.reset();
    }
}

void AltasTrabajo::Aparta() {
    std::swap(m_nuevas, m_apartadas);
    for (Nuevas* nuevas : m_nuevas.Cada())
        nuevas->Olvida(0);
}

QList<qint64> AltasTrabajo::Escribe() {
    Aparta();
    return EscribeApartadas();
}

QList<qint64> AltasTrabajo::EscribeApartadas() {
    PonPisos();
    QList<qint64> rechazadas;
    for (Nuevas* apartadas : m_apartadas.Cada()) {
        for (const size_t fila : m_base->AgregaFilas(apartadas->filas))
            rechazadas.append(apartadas->lineas[fila]);
        apartadas->Olvida(0);
    }
    if (!rechazadas.isEmpty())
        m_version.reset(); // a row is remembered that isn't there
    std::sort(rechazadas.begin(), rechazadas.end());
    return rechazadas;
}

} // namespace xa518
