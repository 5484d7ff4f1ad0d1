#pragma once

#include <QString>

namespace xa518 {

/// How each command is called, one below the other.
[[nodiscard]] const QString& TextoDeUso();

/// What `--help` prints.
[[nodiscard]] const QString& TextoDeAyuda();

} // namespace xa518
