#pragma once

#include "import/CheckedLine.h"

#include <QString>

namespace xa518 {

/// The wording of a code that the import fixes itself; empty for a code that shows the text of table `ERROR`.
[[nodiscard]] QString TextoFijo(Codigo codigo);

} // namespace xa518
