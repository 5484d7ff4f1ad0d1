#pragma once

#include "values/Message.h"

namespace xa518 {

// What windows and command line let into the register, the profile file and the lists: a line of text, of printable
// characters. A line break would end a list's row, or the value in a profile file, for every reader.

[[nodiscard]] Veredicto ValidaNombreDeDeclarante(const QString& nombre);
[[nodiscard]] Veredicto ValidaUsuario(const QString& usuario);
[[nodiscard]] Veredicto ValidaCarpeta(const QString& carpeta);
/// The text of a connection to a server, as the profile file is to keep it.
[[nodiscard]] Veredicto ValidaConexion(const QString& conexion);

} // namespace xa518
