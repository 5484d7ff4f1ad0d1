#pragma once

#include <libpq-fe.h>

#include <chrono>

namespace xa518 {

/// What is waited for on the wire.
enum class Espera { Lectura, Escritura };

/// Waits until the connection has something to read, or room to write, that long at most; false when it hadn't.
[[nodiscard]] bool EsperaEnLinea(const PGconn* conexion, Espera que, std::chrono::milliseconds cuanto);

} // namespace xa518
