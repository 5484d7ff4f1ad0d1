#include "form518/RunUndo.h"

#include "data/Base.h"
#include "data/FollowedWork.h"
#include "data/Transaction.h"
#include "form518/DetailColumns.h"
#include "form518/LastDelete.h"
#include "form518/WorkOrder.h"
#include "form518/WorkTables.h"

#include <QHash>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCambiadosNombrados = 5;

/// The columns of a key, equal in two tables: "A.a = B.a AND A.b = B.b".
template <typename Dato>
QString Enlace(const QList<Dato>& clave, const QString& una, const QString& otra) {
    QStringList iguales;
    for (const Dato dato : clave)
        iguales.append(u"%1.%3 = %2.%3"_s.arg(una, otra, ColumnaDe(dato)));
    return iguales.join(u" AND "_s);
}

qint64 Numero(Base& base, const QString& sql) {
    Registros fila = base.Lee(sql);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

} // namespace

/// The numbers of the rows that a run has added to each work table, as conditions.
class VueltaAtras::Tramos {
  public:
    Tramos(Base& base, const Registros& corrida) : m_orden(base) {
        for (const TablaDeTrabajo& tabla : TablasPorDependencia()) {
            const auto numero = [&](const QString& de) { return corrida.Texto(de + tabla.sufijo); };
            m_tramos.insert(tabla.nombre, {numero(u"desde_"_s), numero(u"hasta_"_s), numero(u"filas_"_s).toLongLong()});
        }
    }

    /// Of the run, spoken of by the table or its alias.
    [[nodiscard]] QString EsSuya(const TablaDeTrabajo& tabla, const QString& alias = {}) const {
        return EsSuyo(tabla, m_orden.De(alias.isEmpty() ? tabla.nombre : alias));
    }
    /// The same of a number of a row.
    [[nodiscard]] QString EsSuyo(const TablaDeTrabajo& tabla, const QString& numero) const {
        const Tramo tramo = m_tramos.value(tabla.nombre);
        return u"(%1 > %2 AND %1 <= %3)"_s.arg(numero, tramo.desde, tramo.hasta);
    }
    /// A row that goes: of the run, or under a row of the run.
    [[nodiscard]] QString SeVa(const TablaDeTrabajo& tabla) const {
        return u'(' + EsSuya(tabla) + Cuelga(tabla) + u')';
    }

    /// Changed by hand after a run.
    [[nodiscard]] QString EsDeMano(const TablaDeTrabajo& tabla) const {
        return u"EXISTS (SELECT 1 FROM TMPF518MANO AS M WHERE M.tabla = '%1' AND M.orden = %2)"_s.arg(tabla.nombre,
                                                                                                      Orden(tabla));
    }

    [[nodiscard]] qint64 Anadidas(const TablaDeTrabajo& tabla) const { return m_tramos.value(tabla.nombre).filas; }
    [[nodiscard]] QString Orden(const TablaDeTrabajo& tabla) const { return m_orden.De(tabla.nombre); }

  private:
    struct Tramo {
        QString desde;
        QString hasta;
        qint64 filas = 0;
    };

    [[nodiscard]] QString Cuelga(const TablaDeTrabajo& tabla) const {
        const QString cliente = u" OR EXISTS (SELECT 1 FROM TMPF518PCAB AS C WHERE %1 AND %2)"_s.arg(
            EsSuya(TablaDeClientes(), u"C"_s), Enlace(ClaveDeClientes(), u"C"_s, tabla.nombre));
        if (tabla.nombre == TablaDeClientes().nombre)
            return {};
        if (tabla.nombre == TablaDeComprobantes().nombre)
            return cliente;
        using enum DatoPago;
        return cliente + u" OR EXISTS (SELECT 1 FROM TMPF518PDET AS D WHERE %1 AND D.%2 = '' AND %3)"_s.arg(
                             EsSuya(TablaDeComprobantes(), u"D"_s), ColumnaDe(DatoComprobante::TipCp),
                             Enlace<DatoPago>({TipoDoc, NumDoc, SerieCp, NumeroCp}, u"D"_s, tabla.nombre));
    }

    OrdenDeTrabajo m_orden;
    QHash<QString, Tramo> m_tramos;
};

std::optional<VueltaAtras::Tramos> VueltaAtras::Lee() const {
    Registros corrida = m_base->Lee(u"SELECT * FROM TMPF518CORRIDA WHERE corrida = (SELECT max(corrida) FROM "
                                    "TMPF518CORRIDA)"_s);
    return corrida.Siguiente() ? std::optional(Tramos(*m_base, corrida)) : std::nullopt;
}

std::optional<LoQueSeIria> VueltaAtras::Mira(Avance& avance) {
    const TrabajoSeguido seguido(*m_base, avance, 0);
    return Cuenta();
}

std::optional<LoQueSeIria> VueltaAtras::Cuenta() {
    CorridasTrabajo corridas(*m_base);
    corridas.CierraInterrumpidas();
    const std::optional<CorridaTrabajo> ultima = corridas.Ultima();
    if (!ultima)
        return std::nullopt;
    const Tramos tramos = *Lee();
    LoQueSeIria seIria{.corrida = *ultima};
    CuentaFilas(tramos, seIria);
    CuentaManos(tramos, seIria);
    if (seIria.HuboManos())
        NombraCambiados(tramos, seIria);
    return seIria;
}

void VueltaAtras::CuentaFilas(const Tramos& tramos, LoQueSeIria& seIria) {
    const auto cuenta = [&](const TablaDeTrabajo& tabla) {
        return Numero(*m_base, u"SELECT count(*) FROM %1 WHERE %2"_s.arg(tabla.nombre, tramos.SeVa(tabla)));
    };
    seIria.clientes = cuenta(TablaDeClientes());
    seIria.pagos = cuenta(TablaDePagos());
    Registros sumas = m_base->Lee(u"SELECT count(*), %1, %2 FROM TMPF518PDET WHERE %3"_s.arg(
        SumaDe(DatoComprobante::MontoBase), SumaDe(DatoComprobante::Percepcion), tramos.SeVa(TablaDeComprobantes())));
    if (!sumas.Siguiente())
        return;
    seIria.comprobantes = sumas.Entero(0);
    seIria.base = Importe::Valor(sumas.Texto(1));
    seIria.percepcion = Importe::Valor(sumas.Texto(2));
}

void VueltaAtras::CuentaManos(const Tramos& tramos, LoQueSeIria& seIria) {
    const auto seVan = [&seIria](const TablaDeTrabajo& tabla) {
        if (tabla.nombre == TablaDeClientes().nombre)
            return seIria.clientes;
        return tabla.nombre == TablaDePagos().nombre ? seIria.pagos : seIria.comprobantes;
    };
    for (const TablaDeTrabajo& tabla : TablasPorDependencia()) {
        const qint64 quedan =
            Numero(*m_base, u"SELECT count(*) FROM %1 WHERE %2"_s.arg(tabla.nombre, tramos.EsSuya(tabla)));
        seIria.eliminadas += tramos.Anadidas(tabla) - quedan;
        seIria.colgadas += seVan(tabla) - quedan;
        seIria.modificadas += Numero(*m_base, u"SELECT count(*) FROM %1 WHERE %2 AND %3"_s.arg(
                                                  tabla.nombre, tramos.EsSuya(tabla), tramos.EsDeMano(tabla)));
    }
}

void VueltaAtras::NombraCambiados(const Tramos& tramos, LoQueSeIria& seIria) {
    const auto nombra = [&](const TablaDeTrabajo& tabla, const QString& columnas, const QString& texto) {
        Registros filas = m_base->Lee(u"SELECT %1 FROM %2 WHERE %3 AND (%4 OR NOT %5) ORDER BY %6"_s.arg(
            columnas, tabla.nombre, tramos.SeVa(tabla), tramos.EsDeMano(tabla), tramos.EsSuya(tabla),
            tramos.Orden(tabla)));
        while (seIria.cuales.size() < kCambiadosNombrados && filas.Siguiente()) {
            QString uno = texto;
            for (int i = 0; i < filas.Columnas(); ++i)
                uno = uno.arg(filas.Texto(i));
            seIria.cuales.append(uno);
        }
    };
    nombra(TablaDeClientes(), ColumnaDe(DatoCliente::NumDoc), u"el cliente %1"_s);
    nombra(TablaDeComprobantes(),
           ListaDe<DatoComprobante>({DatoComprobante::Serie, DatoComprobante::Numero, DatoComprobante::NumDoc}),
           u"el comprobante %1-%2 de %3"_s);
    nombra(TablaDePagos(),
           ListaDe<DatoPago>({DatoPago::Serie, DatoPago::Numero, DatoPago::SerieCp, DatoPago::NumeroCp}),
           u"el comprobante de pago %1-%2 del %3-%4"_s);
}

bool VueltaAtras::Deshace(int numero, Avance& avance) {
    const std::optional<LoQueSeIria> seIria = Cuenta();
    if (!seIria || seIria->corrida.numero != numero)
        return false;
    const Tramos tramos = *Lee();
    const qint64 previos = Numero(*m_base, u"SELECT count(*) FROM TMPF518PREVIO"_s);
    const TrabajoSeguido seguido(*m_base, avance,
                                 seIria->clientes + seIria->comprobantes + seIria->pagos + 2 * previos);
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    for (const TablaDeTrabajo& tabla : TablasPorDependencia()) {
        m_base->Ejecuta(u"DELETE * FROM %1 WHERE %2"_s.arg(tabla.nombre, tramos.SeVa(tabla)));
        m_base->Ejecuta(u"DELETE * FROM TMPF518MANO WHERE tabla = '%1' AND %2"_s.arg(tabla.nombre,
                                                                                     tramos.EsSuyo(tabla, u"orden"_s)));
    }
    DevuelveTotales(numero);
    for (const QString& tabla : {u"TMPF518PREVIO"_s, u"TMPF518CORRIDA"_s})
        m_base->Ejecuta(u"DELETE * FROM %1 WHERE corrida = ?"_s.arg(tabla), {numero});
    UltimoBorrado(*m_base).Olvida();
    transaccion.Confirma();
    return true;
}

/// Even looking at a client's vouchers rewrites its totals, so that all come back, not only those that the run changed.
void VueltaAtras::DevuelveTotales(int numero) {
    const OrdenDeTrabajo orden(*m_base);
    const QString previo = u"FROM TMPF518PREVIO AS P WHERE P.corrida = %1 AND P.orden = %2"_s.arg(
        QString::number(numero), orden.De(TablaDeClientes().nombre));
    m_base->Ejecuta(u"UPDATE TMPF518PCAB SET (ctd_docs, mto_base_p, mto_imp_p) = (SELECT P.ctd_docs, P.mto_base_p, "
                    "P.mto_imp_p %1) WHERE EXISTS (SELECT 1 %1 AND P.tocado = 0)"_s.arg(previo));
    QList<ClaveCliente> tocados;
    {
        Registros filas = m_base->Lee(
            u"SELECT tip_doc_per, num_doc_per FROM TMPF518PCAB WHERE EXISTS (SELECT 1 %1 AND P.tocado = 1)"_s.arg(
                previo));
        while (filas.Siguiente())
            tocados.append({CodigoDocumento(static_cast<int>(filas.Entero(0))), filas.Texto(1)});
    }
    for (const ClaveCliente& cliente : tocados)
        TablasTrabajo(*m_base).RepasaTotales(cliente);
}

} // namespace xa518
