#pragma once

#include "declaration/Declaration.h"

#include <QString>

namespace xa518 {

class Base;

/// The grid's query: one row per client of the work table, with the short name of its document type. A client whose
/// type the catalogue lacks isn't in it, and so is lost at a save, whose source it is. Wanted.
[[nodiscard]] QString SqlClientes();

enum class ColumnaCliente {
    Doc,
    NumDocPer,
    DesRazon,
    MtoBaseP,
    MtoImpP,
    DesApellidoP,
    DesApellidoM,
    DesNombres,
    TipDocPer
};

/// The totals shown when a declaration has just been loaded: "0" without clients.
void MuestraTotalesDeCarga(Base& base, Declaracion& declaracion);

/// The totals and the count after every refresh of the grid, which also fill box 401 and start its arithmetic. A sum of
/// 0 shows as the empty text here, and then boxes 401, 502 and 503 leave no row at the save. Wanted.
void RefrescaTotales(Base& base, Declaracion& declaracion);

} // namespace xa518
