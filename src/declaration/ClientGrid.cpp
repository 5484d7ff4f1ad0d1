#include "declaration/ClientGrid.h"

#include "data/Base.h"
#include "form518/WorkTables.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The client table leads the join, so that rows keep the order in which they were entered.
const QString& DesdeClientes() {
    static const QString desde = u"FROM TMPF518PCAB AS A CROSS JOIN PARAM AS B "
                                 "WHERE B.NUMERO='044' AND VAL(B.ARGUMENTO) = VAL(A.TIP_DOC_PER)"_s;
    return desde;
}

int CuentaFilas(Base& base) {
    Registros fila = base.Lee(u"SELECT count(*) "_s + DesdeClientes());
    return fila.Siguiente() ? static_cast<int>(fila.Entero(0)) : 0;
}

QString Monto(const QString& suma, QStringView mascara) {
    return Format(Decimal::Valor(suma), mascara);
}

} // namespace

QString SqlClientes() {
    return u"SELECT MID(B.FUNCION,32,12) AS DOC, A.NUM_DOC_PER, A.DES_RAZON, A.MTO_BASE_P, A.MTO_IMP_P, "
           "A.DES_APELLIDO_P, A.DES_APELLIDO_M, A.DES_NOMBRES, A.TIP_DOC_PER "_s +
           DesdeClientes() + u" ORDER BY A.rowid"_s;
}

void MuestraTotalesDeCarga(Base& base, Declaracion& declaracion) {
    Registros fila = base.Lee(u"SELECT SUM(val(MTO_BASE_P)) as TOTAL_BASE, SUM(VAL(MTO_IMP_P)) as TOTAL_IMP "
                              "FROM TMPF518PCAB"_s);
    if (!fila.Siguiente())
        return;
    declaracion.base = Monto(fila.Texto(0), u"###,###,###,###,##0");
    declaracion.percepcion = Monto(fila.Texto(1), u"###,###,###,###,##0");
    declaracion.clientes = CuentaFilas(base);
}

void RefrescaTotales(Base& base, Declaracion& declaracion) {
    constexpr QStringView kSinCeros = u"###,###,###,###,###";
    const TablasTrabajo::Totales totales = TablasTrabajo(base).TotalesDeClientes();
    declaracion.base = Format(totales.base, kSinCeros);
    declaracion.percepcion = Format(totales.percepcion, kSinCeros);
    declaracion.clientes = CuentaFilas(base);
    declaracion.montos.Cambia(401, Format(declaracion.percepcion, kSinCeros));
}

} // namespace xa518
