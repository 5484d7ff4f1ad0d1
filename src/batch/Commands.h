#pragma once

#include "batch/Arguments.h"
#include "batch/Report.h"

namespace xa518 {

struct Proceso;
class LineaDeAvance;

/// Runs one command over the open base. A refusal is raised as `Rechazo`, a failure as `Error`; the report then has
/// what was done until there.
void EjecutaOrden(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe);

} // namespace xa518
