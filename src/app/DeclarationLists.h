#pragma once

#include "data/LongList.h"

namespace xa518 {

struct Proceso;

/// The columns of both lists, and those that only the list of sent declarations has.
struct ColumnaDeLista {
    enum : int { Ruc, Nombre, Periodo, Formulario, NOrden, FecEnv, Control, Correl };
};

enum class OrdenRegistradas { Periodo, Ruc, Nombre };

/// The registered declarations that the user may see, latest period first unless ordered otherwise.
[[nodiscard]] ConsultaDeLista SqlRegistradas(const Proceso& proceso,
                                             OrdenRegistradas orden = OrdenRegistradas::Periodo);

enum class MomentoEnviadas { Carga, Reactivacion };

/// The sent declarations that the user may see. The two moments differ on purpose: at load the declarant's kind of
/// document isn't limited, so a number that is registered under two kinds shows twice.
[[nodiscard]] ConsultaDeLista SqlEnviadas(const Proceso& proceso, MomentoEnviadas momento);

} // namespace xa518
