#pragma once

#include "family/FormDescription.h"

namespace xa518 {

inline const QString kNumFormulario = QStringLiteral("0518");

/// What form 0518 tells of itself to the shared rooms.
[[nodiscard]] const Formulario& Formulario0518();

} // namespace xa518
