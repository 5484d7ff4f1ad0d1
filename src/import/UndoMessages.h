#pragma once

#include "form518/RunUndo.h"
#include "values/Message.h"

namespace xa518 {

/// One line about a run: its file, when, by whom, and what became of its lines.
[[nodiscard]] QString ComoFue(const CorridaTrabajo& corrida);

/// Before a run is undone: what goes, and what was done by hand since.
[[nodiscard]] Mensaje PreguntaPorDeshacer(const LoQueSeIria& seIria);
/// After it.
[[nodiscard]] Mensaje MensajeDeshecha(const LoQueSeIria& seFue);

/// Before a file is imported whose very bytes are in the declaration already.
[[nodiscard]] Mensaje PreguntaPorRepetida(const CorridaTrabajo& anterior);

} // namespace xa518
