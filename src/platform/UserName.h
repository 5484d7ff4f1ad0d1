#pragma once

#include <QString>

namespace xa518 {

/// The name by which the person goes on this machine: what the system answers on Windows, elsewhere `USER`. Empty when
/// nothing tells it.
[[nodiscard]] QString NombreDelUsuario();

} // namespace xa518
