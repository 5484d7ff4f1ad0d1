#include "form518/WorkTables.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/DetailColumns.h"
#include "form518/LastDelete.h"
#include "form518/WorkRuns.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Rows keep the order in which they were entered: `desde` reads in the source's own.
QString CopiaSql(const QString& destino, const QString& columnas, const QString& valores, const QString& desde) {
    return u"INSERT INTO %1 (%2) SELECT %3 %4"_s.arg(destino, columnas, valores, desde);
}

/// The three tables name their client alike.
const QString& DeUnCliente() {
    static const QString condicion = u" WHERE "_s + IgualesA(ClaveDeClientes());
    return condicion;
}

} // namespace

const QString& SqlSumasDeCliente() {
    static const QString sql = u"SELECT %1, %2 FROM TMPF518PDET"_s.arg(SumaDe(DatoComprobante::MontoBase),
                                                                       SumaDe(DatoComprobante::Percepcion)) +
                               DeUnCliente();
    return sql;
}

bool EsEmpresa(CodigoDocumento tipo, QStringView numero) {
    return tipo.EsRuc() && numero.startsWith(u"20");
}

void TablasTrabajo::Reconstruye(const ClaveDeclaracion& clave) {
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    Llena(clave);
    transaccion.Confirma();
}

void TablasTrabajo::Llena(const ClaveDeclaracion& clave) {
    CorridasTrabajo(*m_base).Vacia();
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB"_s);
    CopiaClientes(clave);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s);
    CopiaComprobantes(clave, u"F518PDET"_s);
    CopiaComprobantes(clave, u"F518PDETVC"_s);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s);
    CopiaPagos(clave);
}

/// A company keeps its name. Any other client is a person, whose full name is put together again from its parts.
void TablasTrabajo::CopiaClientes(const ClaveDeclaracion& clave) {
    using enum DatoCliente;
    const QString esEmpresa = u"(%1 = 6 AND mid(%2, 1, 2) = '20')"_s.arg(ColumnaDe(TipoDoc), ColumnaDe(NumDoc));
    const QString completo =
        u"left(%1 & ' ' & %2 & ' ' & %3, 40)"_s.arg(ColumnaDe(ApellidoP), ColumnaDe(ApellidoM), ColumnaDe(Nombres));
    const auto dePersona = [&](DatoCliente dato) {
        return u"CASE WHEN NOT %1 THEN %2 END"_s.arg(esEmpresa, ColumnaDe(dato));
    };
    const QStringList nombres = {u"CASE WHEN %1 THEN %2 ELSE %3 END"_s.arg(esEmpresa, ColumnaDe(Razon), completo),
                                 dePersona(ApellidoP), dePersona(ApellidoM), dePersona(Nombres)};
    const QList<DatoCliente> tambien = {TipoDoc, NumDoc, CtdDocs, MontoBase, Percepcion};
    m_base->Ejecuta(CopiaSql(u"TMPF518PCAB"_s,
                             ListaDe<DatoCliente>({Razon, ApellidoP, ApellidoM, Nombres}) + u", "_s + ListaDe(tambien),
                             nombres.join(u", "_s) + u", "_s + ListaDe(tambien),
                             m_base->EnOrdenDeAlta(clave.Tabla(u"F518PCAB"_s), clave.Condicion())),
                    clave.Valores());
}

/// Only the table of cash sales has a column for the type.
void TablasTrabajo::CopiaComprobantes(const ClaveDeclaracion& clave, const QString& tabla) {
    const QStringList columnas = ColumnasDe(DatosDeComprobantes());
    QStringList valores = columnas;
    if (tabla != u"F518PDETVC")
        valores.replace(columnas.indexOf(ColumnaDe(DatoComprobante::TipCp)), u"''"_s);
    m_base->Ejecuta(CopiaSql(u"TMPF518PDET"_s, columnas.join(u", "_s), valores.join(u", "_s),
                             m_base->EnOrdenDeAlta(clave.Tabla(tabla), clave.Condicion())),
                    clave.Valores());
}

void TablasTrabajo::CopiaPagos(const ClaveDeclaracion& clave) {
    const QString columnas = ListaDe(DatosDePagos());
    m_base->Ejecuta(CopiaSql(u"TMPF518PDETCP"_s, columnas, columnas,
                             m_base->EnOrdenDeAlta(clave.Tabla(u"F518PDETCP"_s), clave.CondicionSinTipo())),
                    clave.Valores());
}

int TablasTrabajo::CuentaDocs(const ClaveCliente& cliente) const {
    static const QString sql = u"SELECT count(*) as cont FROM TMPF518PDET"_s + DeUnCliente();
    Registros fila = m_base->Lee(sql, {cliente.tipoDoc.Valor(), cliente.numero});
    return fila.Siguiente() ? static_cast<int>(fila.Entero(0)) : 0;
}

TablasTrabajo::Totales TablasTrabajo::TotalesDeClientes() const {
    const auto monto = [](const QString& texto) { return Importe::Valor(Format(texto, kMascaraDeMonto)); };
    Totales totales;
    Registros filas = m_base->Lee(
        u"SELECT %1 FROM TMPF518PCAB"_s.arg(ListaDe<DatoCliente>({DatoCliente::MontoBase, DatoCliente::Percepcion})));
    while (filas.Siguiente()) {
        totales.base += monto(filas.Texto(0));
        totales.percepcion += monto(filas.Texto(1));
    }
    return totales;
}

TablasTrabajo::Totales TablasTrabajo::TotalesDeCarga() const {
    Registros fila = m_base->Lee(u"SELECT SUM(val(%1)), SUM(val(%2)) FROM TMPF518PCAB"_s.arg(
        ColumnaDe(DatoCliente::MontoBase), ColumnaDe(DatoCliente::Percepcion)));
    if (!fila.Siguiente())
        return {};
    return {.base = Importe::Valor(fila.Texto(0)), .percepcion = Importe::Valor(fila.Texto(1))};
}

void TablasTrabajo::CalculaTotales() {
    static const QString sql =
        u"UPDATE TMPF518PCAB SET (%1, %2) = (SELECT importe(%3), importe(%4) FROM TMPF518PDET "
        "AS D WHERE D.%5 = TMPF518PCAB.%5 AND D.%6 = TMPF518PCAB.%6)"_s.arg(
            ColumnaDe(DatoCliente::MontoBase), ColumnaDe(DatoCliente::Percepcion), SumaDe(DatoComprobante::MontoBase),
            SumaDe(DatoComprobante::Percepcion), ColumnaDe(DatoCliente::TipoDoc), ColumnaDe(DatoCliente::NumDoc));
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    m_base->Ejecuta(sql);
    // Wanted: the family's programs open an empty set on each table after a rewrite, which finds a lost one.
    const Registros vacia = m_base->Lee(u"SELECT * FROM F518PDET WHERE doc_id_d='0'"_s);
    transaccion.Confirma();
}

void TablasTrabajo::RepasaTotales(const ClaveCliente& cliente) {
    const auto monto = [](const QString& texto) { return Importe::Valor(Format(texto, kMascaraDeMonto)); };
    const auto valores = QVariantList{cliente.tipoDoc.Valor(), cliente.numero};
    ClientesTrabajo clientes(*m_base);
    const ClientesTrabajo::Sumas sumas = clientes.SumaComprobantes(cliente);
    const TotalesCliente suyos{
        .ctdDocs = CuentaDocs(cliente), .base = monto(sumas.base), .percepcion = monto(sumas.percepcion)};
    const std::optional<Registro> fila = m_base->Busca(u"TMPF518PCAB"_s, DeUnCliente(), valores);
    if (!fila)
        return;
    const auto escrito = [&](DatoCliente dato) { return monto(fila->Valor(ColumnaDe(dato)).toString()); };
    if (escrito(DatoCliente::MontoBase) != suyos.base || escrito(DatoCliente::Percepcion) != suyos.percepcion)
        clientes.EscribeTotales(cliente, suyos);
}

void TablasTrabajo::EliminaCliente(const ClaveCliente& cliente) {
    const QVariantList valores{cliente.tipoDoc.Valor(), cliente.numero};
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    UltimoBorrado(*m_base).Guarda(cliente);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB"_s + DeUnCliente(), valores);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s + DeUnCliente(), valores);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s + DeUnCliente(), valores);
    transaccion.Confirma();
}

} // namespace xa518
