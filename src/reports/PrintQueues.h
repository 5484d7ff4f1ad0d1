#pragma once

#include <QString>

namespace xa518 {

// What the toolkit keeps to itself of the system's print service: a file for each system.

/// What becomes of a job that is sent to a printer now: it is printed, it waits until the printer goes on, or it is
/// refused.
enum class EstadoCola { Lista, Detenida, NoRecibe };

[[nodiscard]] bool RespondeElServicio();

[[nodiscard]] EstadoCola EstadoDeCola(const QString& nombre);

/// Why the service refused the job that this thread sent last, in its own words; empty when it took it.
[[nodiscard]] QString RechazoDelUltimo();

} // namespace xa518
