#pragma once

#include "declaration/Declaration.h"

namespace xa518 {

class Base;

/// A total as the form shows it: whole units; empty when there is none.
[[nodiscard]] QString TextoDeTotal(const std::optional<Importe>& total);

/// What the grid of clients adds up to.
struct TotalesDeGrilla {
    Importe base;
    Importe percepcion;
    int clientes = 0;
};

/// The totals shown when a declaration has just been loaded: "0" without clients.
[[nodiscard]] TotalesDeGrilla LeeTotalesDeCarga(Base& base);
void MuestraTotalesDeCarga(const TotalesDeGrilla& totales, Declaracion& declaracion);

/// The totals and the count after every refresh of the grid, which also fill box 401 and start its arithmetic. A sum of
/// 0 shows as the empty text here, and then boxes 401, 502 and 503 leave no row at the save. Wanted: a box that
/// is empty has no row.
void RefrescaTotales(Base& base, Declaracion& declaracion);

/// The same in two steps, of which only the first needs the base.
[[nodiscard]] TotalesDeGrilla LeeTotales(Base& base);
void PonTotales(const TotalesDeGrilla& totales, Declaracion& declaracion);

} // namespace xa518
