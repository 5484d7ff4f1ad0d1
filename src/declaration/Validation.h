#pragma once

#include "declaration/Declaration.h"

namespace xa518 {

class Avisos;
class Forma;
struct Proceso;

/// Tells over the form what is wrong with its declaration: the warning about the amount, and then the inconsistencies,
/// which it writes to their file, or that there is none.
void MuestraValidacion(Forma& sobre, Avisos& avisos, const Proceso& proceso, const Declaracion& declaracion);

} // namespace xa518
