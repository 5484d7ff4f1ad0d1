#pragma once

#include "data/CatalogLayout.h"

namespace xa518 {

/// The catalogues that form 0518 brings, its flags in the document types among them.
[[nodiscard]] const QList<Catalogado>& CatalogosDelFormulario();

} // namespace xa518
