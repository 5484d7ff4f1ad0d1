#include "declaration/ClientGrid.h"

#include "form518/WorkClients.h"
#include "form518/WorkTables.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Nothing for less than half a unit.
std::optional<Importe> SinCero(Importe suma) {
    return suma.ADecimal().RedondeaFuera(0).Signo() == 0 ? std::nullopt : std::optional(suma);
}

} // namespace

QString TextoDeTotal(const std::optional<Importe>& total) {
    return total ? Format(*total, u"###,###,###,###,##0") : QString();
}

TotalesDeGrilla LeeTotalesDeCarga(Base& base) {
    const TablasTrabajo::Totales totales = TablasTrabajo(base).TotalesDeCarga();
    return {.base = totales.base, .percepcion = totales.percepcion, .clientes = CuentaClientes(base)};
}

void MuestraTotalesDeCarga(const TotalesDeGrilla& totales, Declaracion& declaracion) {
    declaracion.base = totales.base;
    declaracion.percepcion = totales.percepcion;
    declaracion.clientes = totales.clientes;
}

TotalesDeGrilla LeeTotales(Base& base) {
    const TablasTrabajo::Totales totales = TablasTrabajo(base).TotalesDeClientes();
    return {.base = totales.base, .percepcion = totales.percepcion, .clientes = CuentaClientes(base)};
}

void RefrescaTotales(Base& base, Declaracion& declaracion) {
    PonTotales(LeeTotales(base), declaracion);
}

void PonTotales(const TotalesDeGrilla& totales, Declaracion& declaracion) {
    declaracion.base = SinCero(totales.base);
    declaracion.percepcion = SinCero(totales.percepcion);
    declaracion.clientes = totales.clientes;
    declaracion.montos.Cambia(401, TextoDeTotal(declaracion.percepcion));
}

} // namespace xa518
