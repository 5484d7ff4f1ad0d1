#pragma once

#include "values/Message.h"

#include <QString>

namespace xa518 {

/// Starts the module of the declaration, found in `carpeta`, where this program lies, or else on the PATH, and doesn't
/// wait for it. Refused, with what to do, when it isn't there or doesn't start.
[[nodiscard]] Veredicto IniciaModulo(const QString& carpeta);

} // namespace xa518
