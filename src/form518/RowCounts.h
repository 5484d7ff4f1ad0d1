#pragma once

#include "family/DeclarationKey.h"

namespace xa518 {

class Base;

/// How many rows the open declaration's detail and the stored one's have together: what opening it takes away and
/// writes, and what its save does.
[[nodiscard]] qint64 FilasDelDetalle(Base& base, const ClaveDeclaracion& clave);

} // namespace xa518
