#pragma once

#include "import/ImportFormat.h"

namespace xa518 {

/// Perception vouchers: one payment voucher a line, with the client and the perception voucher that it belongs to.
[[nodiscard]] const FormatoImportacion& FormatoPercepciones();

} // namespace xa518
