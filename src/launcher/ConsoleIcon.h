#pragma once

#include <QIcon>

namespace xa518 {

/// The launcher's own icon, for its windows.
[[nodiscard]] QIcon IconoDeLaConsola();

} // namespace xa518
