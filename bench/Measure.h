#pragma once

#include <functional>
#include <vector>

namespace xa518::medida {

struct Medida {
    double segundos = 0;   ///< by the wall's clock
    double procesador = 0; ///< seconds of processor, which other programs on the machine disturb less
    long memoriaKb = 0;    ///< the most that the work has held at once
    long escritos = 0;     ///< bytes handed to the files, the whole process's
};

/// Does the work in a process of its own, so that its peak of memory is its own too. `trabajo` does what isn't timed
/// first and returns what is. Raises `std::runtime_error` when the process fails.
[[nodiscard]] Medida Mide(const std::function<std::function<void()>()>& trabajo);

using Medicion = std::function<Medida()>;

/// Takes each of the measures `veces` times, in turns, so that other programs on the machine disturb all alike, and
/// keeps of each the one with the least time of processor.
[[nodiscard]] std::vector<Medida> MideDeATurnos(int veces, const std::vector<Medicion>& mediciones);

/// A row of the table that scripts/bench gathers: what was measured, the result with its unit, and what it should stay
/// within.
void Resume(const char* que, double resultado, const char* unidad, const char* meta);

} // namespace xa518::medida
