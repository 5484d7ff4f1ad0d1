#pragma once

#include "import/ImportFormat.h"

namespace xa518 {

/// Perception vouchers: one payment voucher a line, with the client and the perception voucher that it belongs to.
[[nodiscard]] const FormatoImportacion& FormatoPercepciones();

/// Cash sales, where the payment voucher is the perception voucher: one a line, with its client.
[[nodiscard]] const FormatoImportacion& FormatoVentas();

/// What the fields of both are called to a person.
[[nodiscard]] QString NombreDeCampo(Campo campo);

} // namespace xa518
