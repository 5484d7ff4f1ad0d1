#pragma once

#include "family/FormDescription.h"

namespace xa518 {

/// The forms that the programs know, each one line here. The order is that in which the launcher offers them.
[[nodiscard]] Formularios FormulariosConocidos();

} // namespace xa518
