#include "form518/WorkClients.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/FormCatalogs.h"
#include "form518/LastDelete.h"
#include "form518/WorkOrder.h"
#include "form518/WorkTables.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kClientes = u"TMPF518PCAB"_s;

/// Clients and vouchers name their client alike.
const QString& DelCliente() {
    static const QString condicion = u" WHERE "_s + IgualesA(ClaveDeClientes());
    return condicion;
}

QVariantList Valores(const ClaveCliente& cliente) {
    return {cliente.tipoDoc.Valor(), cliente.numero};
}

/// An amount of sixteen characters or more loses its decimals. Wanted: it keeps to its field.
QString BaseDeFila(Importe base) {
    constexpr qsizetype kSinDecimales = 16;
    const bool cabe = Format(base, u"##############0.#0").size() < kSinDecimales;
    return Format(base, cabe ? u"############.#0" : u"##############0");
}

QString SinNegativos(const QString& suma) {
    return SignoDelValor(suma) < 0 ? u"0"_s : suma;
}

} // namespace

ConsultaDeLista SqlClientes() {
    using enum DatoCliente;
    return {.columnas = u"%1 AS DOC, "_s.arg(kCortoEnGrilla.Sql(u"B.FUNCION")) +
                        ListaDe<DatoCliente>(
                            {NumDoc, Razon, MontoBase, Percepcion, ApellidoP, ApellidoM, Nombres, TipoDoc}, u"A"_s),
            .desde = u"FROM TMPF518PCAB AS A CROSS JOIN PARAM AS B"_s,
            .tablas = {u"A"_s, u"B"_s},
            .vinculo = u"B.NUMERO='044' AND VAL(B.ARGUMENTO) = VAL(A.%1)"_s.arg(ColumnaDe(TipoDoc))};
}

int CuentaClientes(Base& base) {
    const ConsultaDeLista clientes = SqlClientes();
    Registros fila = base.Lee(u"SELECT count(*) %1 WHERE %2"_s.arg(clientes.desde, clientes.vinculo));
    return fila.Siguiente() ? static_cast<int>(fila.Entero(0)) : 0;
}

ClientesTrabajo::ClientesTrabajo(Base& base)
    : m_base(&base)
    , m_tabla(&base.Describe(kClientes))
    , m_lugar(*m_tabla, {TipoDoc, NumDoc, Razon, ApellidoP, ApellidoM, Nombres, CtdDocs, MontoBase, Percepcion}) {}

void ClientesTrabajo::PonNombres(Registro& fila, const NombresCliente& nombres) const {
    const auto pon = [&](DatoCliente dato, const std::optional<QString>& nombre) {
        if (nombre)
            fila.Pon(m_lugar[dato], *nombre);
    };
    pon(Razon, nombres.razon);
    pon(ApellidoP, nombres.apellidoP);
    pon(ApellidoM, nombres.apellidoM);
    pon(Nombres, nombres.nombres);
}

void ClientesTrabajo::PonTotales(Registro& fila, const TotalesCliente& totales) const {
    fila.Pon(m_lugar[CtdDocs], QString::number(totales.ctdDocs))
        .Pon(m_lugar[MontoBase], BaseDeFila(totales.base))
        .Pon(m_lugar[Percepcion], Format(totales.percepcion, kMascaraDeMonto));
}

bool ClientesTrabajo::Existe(const ClaveCliente& cliente) const {
    static const QString sql = u"SELECT count(*) FROM TMPF518PCAB"_s + DelCliente();
    Registros fila = m_base->Lee(sql, Valores(cliente));
    return fila.Siguiente() && fila.Entero(0) > 0;
}

void ClientesTrabajo::Agrega(const ClaveCliente& cliente, const NombresCliente& nombres,
                             const TotalesCliente& totales) {
    Registro fila(*m_tabla);
    fila.Pon(m_lugar[TipoDoc], cliente.tipoDoc.Valor()).Pon(m_lugar[NumDoc], cliente.numero);
    PonNombres(fila, nombres);
    PonTotales(fila, totales);
    OrdenDeTrabajo(*m_base).Agrega(TablaDeClientes(), fila);
}

void ClientesTrabajo::Modifica(const ClaveCliente& cliente, const NombresCliente& nombres,
                               const TotalesCliente& totales) {
    std::optional<Registro> fila = m_base->Busca(kClientes, DelCliente(), Valores(cliente));
    if (!fila)
        return;
    const QVariantList antes = fila->Valores();
    PonNombres(*fila, nombres);
    if (fila->Valores() != antes) // the names alone: who only looks at the vouchers rewrites the totals
        OrdenDeTrabajo(*m_base).AnotaCambio(TablaDeClientes(), DelCliente(), Valores(cliente));
    PonTotales(*fila, totales);
    m_base->Actualiza(*fila, DelCliente(), Valores(cliente));
}

void ClientesTrabajo::EscribeTotales(const ClaveCliente& cliente, const TotalesCliente& totales) {
    Modifica(cliente, {}, totales);
}

void ClientesTrabajo::Borra(const ClaveCliente& cliente) {
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    UltimoBorrado(*m_base).GuardaTambien(cliente);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB"_s + DelCliente(), Valores(cliente));
    transaccion.Confirma();
}

void ClientesTrabajo::BarreSinCliente(const ClaveCliente& cliente) {
    if (!Existe(cliente))
        m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s + DelCliente(), Valores(cliente));
}

ClientesTrabajo::Sumas ClientesTrabajo::SumaComprobantes(const ClaveCliente& cliente) const {
    Registros fila = m_base->Lee(SqlSumasDeCliente(), Valores(cliente));
    if (!fila.Siguiente())
        return {};
    return {.base = SinNegativos(fila.Texto(0)), .percepcion = SinNegativos(fila.Texto(1))};
}

} // namespace xa518
