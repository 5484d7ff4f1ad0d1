#include "form518/WorkPayments.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/FormCatalogs.h"
#include "form518/LastDelete.h"
#include "form518/WorkOrder.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPagos = u"TMPF518PDETCP"_s;

const QList<DatoPago>& ClaveDeSuComprobante() {
    using enum DatoPago;
    static const QList<DatoPago> clave = {TipoDoc, NumDoc, SerieCp, NumeroCp};
    return clave;
}

const QString& DeSuComprobante() {
    static const QString condicion = u" WHERE "_s + IgualesA(ClaveDeSuComprobante());
    return condicion;
}

const QString& DelPago() {
    static const QString condicion = u" WHERE "_s + IgualesA(ClaveDePagos());
    return condicion;
}

QVariantList ValoresDelComprobante(const ClaveComprobante& clave) {
    return {clave.cliente.tipoDoc.Valor(), clave.cliente.numero, clave.serie, clave.numero};
}

QVariantList Valores(const ClavePago& clave) {
    return ValoresDelComprobante(clave.comprobante) << clave.tipo << clave.serie << clave.numero;
}

} // namespace

/// In the order of `ColumnaPago`.
ConsultaDeLista PagosTrabajo::SqlDeComprobante(const ClaveComprobante& comprobante) {
    return {.columnas = u"%1 AS TIP_CP, "_s.arg(TramosTipoComprobante::kDescripcionEnPagos.Sql(u"B.FUNCION")) +
                        ListaDe<DatoPago>({Serie, Numero, Fecha, Tipo, Monto}, u"A"_s),
            .desde = u"FROM TMPF518PDETCP AS A, PARAM AS B"_s,
            .tablas = {u"A"_s, u"B"_s},
            .vinculo = u"B.NUMERO='233' AND VAL(B.ARGUMENTO) = VAL(A.%1)"_s.arg(ColumnaDe(Tipo)),
            .filtro = IgualesA(ClaveDeSuComprobante(), u"A"_s),
            .valores = ValoresDelComprobante(comprobante)};
}

QString PagosTrabajo::SqlDeNinguno() {
    return u"SELECT * FROM TMPF518PDETCP WHERE %1='XXXX'"_s.arg(ColumnaDe(SerieCp));
}

PagosTrabajo::PagosTrabajo(Base& base)
    : m_base(&base), m_tabla(&base.Describe(kPagos)), m_lugar(*m_tabla, DatosDePagos()) {}

bool PagosTrabajo::Existe(const ClavePago& clave) const {
    return m_base->Lee(u"SELECT * FROM TMPF518PDETCP"_s + DelPago(), Valores(clave)).Siguiente();
}

void PagosTrabajo::Agrega(const ClavePago& clave, const QString& fecha, const MontoEscrito& monto) {
    Registro fila(*m_tabla);
    fila.Pon(m_lugar[TipoDoc], clave.comprobante.cliente.tipoDoc.Valor())
        .Pon(m_lugar[NumDoc], clave.comprobante.cliente.numero)
        .Pon(m_lugar[SerieCp], clave.comprobante.serie)
        .Pon(m_lugar[NumeroCp], clave.comprobante.numero)
        .Pon(m_lugar[Tipo], clave.tipo)
        .Pon(m_lugar[Serie], clave.serie)
        .Pon(m_lugar[Numero], clave.numero)
        .Pon(m_lugar[Fecha], fecha)
        .Pon(m_lugar[Monto], monto.Texto());
    OrdenDeTrabajo(*m_base).Agrega(TablaDePagos(), fila);
}

void PagosTrabajo::Modifica(const ClavePago& clave, const QString& fecha, const MontoEscrito& monto) {
    std::optional<Registro> fila = m_base->Busca(kPagos, DelPago(), Valores(clave));
    if (!fila)
        return;
    const QVariantList antes = fila->Valores();
    fila->Pon(m_lugar[Fecha], fecha).Pon(m_lugar[Monto], monto.Texto());
    m_base->Actualiza(*fila, DelPago(), Valores(clave));
    if (fila->Valores() != antes)
        OrdenDeTrabajo(*m_base).AnotaCambio(TablaDePagos(), DelPago(), Valores(clave));
}

void PagosTrabajo::Borra(const ClavePago& clave) {
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    UltimoBorrado(*m_base).Guarda(clave);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s + DelPago(), Valores(clave));
    transaccion.Confirma();
}

void PagosTrabajo::BorraDe(const ClaveComprobante& comprobante) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP "_s + DeSuComprobante(), ValoresDelComprobante(comprobante));
}

bool PagosTrabajo::SoloNotasDeCredito(const ClaveComprobante& comprobante) const {
    Registros filas =
        m_base->Lee(u"SELECT * FROM TMPF518PDETCP"_s + DeSuComprobante(), ValoresDelComprobante(comprobante));
    const int tipo = filas.Columna(ColumnaDe(Tipo));
    while (filas.Siguiente()) {
        if (filas.Texto(tipo) != u"07")
            return false;
    }
    return true;
}

} // namespace xa518
