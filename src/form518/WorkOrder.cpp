#include "form518/WorkOrder.h"

#include "data/Base.h"
#include "form518/DetailColumns.h"
#include "form518/WorkClients.h"
#include "form518/WorkRuns.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

qint64 Numero(Base& base, const QString& sql) {
    Registros fila = base.Lee(sql);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

} // namespace

const TablaDeTrabajo& TablaDeClientes() {
    static const TablaDeTrabajo tabla{u"TMPF518PCAB"_s, u"TMPF518BCAB"_s, u"cab"_s};
    return tabla;
}

const TablaDeTrabajo& TablaDeComprobantes() {
    static const TablaDeTrabajo tabla{u"TMPF518PDET"_s, u"TMPF518BDET"_s, u"det"_s};
    return tabla;
}

const TablaDeTrabajo& TablaDePagos() {
    static const TablaDeTrabajo tabla{u"TMPF518PDETCP"_s, u"TMPF518BDETCP"_s, u"cp"_s};
    return tabla;
}

const QList<TablaDeTrabajo>& TablasPorDependencia() {
    static const QList<TablaDeTrabajo> tablas{TablaDePagos(), TablaDeComprobantes(), TablaDeClientes()};
    return tablas;
}

OrdenDeTrabajo::OrdenDeTrabajo(Base& base) : m_base(&base), m_columna(base.NumeroDeFila(u"T"_s).section(u'.', 1)) {}

QString OrdenDeTrabajo::De(const QString& tabla) const {
    return m_base->NumeroDeFila(tabla);
}

qint64 OrdenDeTrabajo::Piso(const TablaDeTrabajo& tabla) const {
    return Numero(*m_base, u"SELECT max(ultimo) FROM (SELECT max(hasta_%1) AS ultimo FROM TMPF518CORRIDA "
                           "UNION ALL SELECT max(orden) FROM %2) AS conocidos"_s.arg(tabla.sufijo, tabla.borradas));
}

qint64 OrdenDeTrabajo::Ultimo(const TablaDeTrabajo& tabla) const {
    return Numero(*m_base, u"SELECT max(%1) FROM %2"_s.arg(m_columna, tabla.nombre));
}

/// An engine that numbers a row by the last one that is left would give a deleted row's number again.
void OrdenDeTrabajo::Agrega(const TablaDeTrabajo& tabla, const Registro& fila) const {
    CorridasTrabajo(*m_base).CierraInterrumpidas();
    m_base->Agrega(fila);
    const qint64 piso = Piso(tabla);
    if (piso == 0)
        return;
    const qint64 suyo = Ultimo(tabla);
    if (suyo <= piso)
        m_base->Ejecuta(u"UPDATE %1 SET %2 = ? WHERE %2 = ?"_s.arg(tabla.nombre, m_columna), {piso + 1, suyo});
}

void OrdenDeTrabajo::AnotaCambio(const TablaDeTrabajo& tabla, const QString& condicion,
                                 const QVariantList& valores) const {
    const QString suya = De(tabla.nombre);
    const QString deUnaCorrida =
        u"EXISTS (SELECT 1 FROM TMPF518CORRIDA AS C WHERE C.desde_%1 < %2 AND C.hasta_%1 >= %2)"_s.arg(tabla.sufijo,
                                                                                                       suya);
    const QString yaAnotada =
        u"EXISTS (SELECT 1 FROM TMPF518MANO AS M WHERE M.tabla = '%1' AND M.orden = %2)"_s.arg(tabla.nombre, suya);
    m_base->Ejecuta(u"INSERT INTO TMPF518MANO (tabla, orden) SELECT '%1', %2 FROM %1%3 AND %4 AND NOT %5"_s.arg(
                        tabla.nombre, suya, condicion, deUnaCorrida, yaAnotada),
                    valores);
}

void OrdenDeTrabajo::AnotaCliente(const ClaveCliente& cliente) const {
    m_base->Ejecuta(u"UPDATE TMPF518PREVIO SET tocado = 1 WHERE orden IN (SELECT %1 FROM TMPF518PCAB WHERE %2)"_s.arg(
                        m_columna, IgualesA(ClaveDeClientes())),
                    {cliente.tipoDoc.Valor(), cliente.numero});
}

} // namespace xa518
