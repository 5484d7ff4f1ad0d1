#include "declaration/ClientGrid.h"

#include "form518/WorkClients.h"
#include "form518/WorkTables.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString Monto(Importe suma) {
    return Format(suma, u"###,###,###,###,##0");
}

} // namespace

void MuestraTotalesDeCarga(Base& base, Declaracion& declaracion) {
    const TablasTrabajo::Totales totales = TablasTrabajo(base).TotalesDeCarga();
    declaracion.base = Monto(totales.base);
    declaracion.percepcion = Monto(totales.percepcion);
    declaracion.clientes = CuentaClientes(base);
}

void RefrescaTotales(Base& base, Declaracion& declaracion) {
    constexpr QStringView kSinCeros = u"###,###,###,###,###";
    const TablasTrabajo::Totales totales = TablasTrabajo(base).TotalesDeClientes();
    declaracion.base = Format(totales.base, kSinCeros);
    declaracion.percepcion = Format(totales.percepcion, kSinCeros);
    declaracion.clientes = CuentaClientes(base);
    declaracion.montos.Cambia(401, Format(declaracion.percepcion, kSinCeros));
}

} // namespace xa518
