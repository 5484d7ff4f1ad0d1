#pragma once

#include "data/Seats.h"

#include <optional>

namespace xa518 {

struct Proceso;

/// Takes a seat for a program that works on declarations, with work tables of its own. What a crash of the same user's
/// program left open on this machine is told with it. Nothing on a file, nor where even work tables can't be written.
/// Raises `ErrorBase`.
[[nodiscard]] std::optional<Puesto> OcupaPuesto(Proceso& proceso);

/// Why commands that write can't be used; empty where they can.
[[nodiscard]] QString PorQueNoSeEscribe(const Base& base);

} // namespace xa518
