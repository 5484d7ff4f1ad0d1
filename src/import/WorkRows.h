#pragma once

#include "form518/WorkPayments.h"
#include "import/CheckedLine.h"
#include "import/ImportRate.h"

namespace xa518 {

// What the work tables keep of a checked line.

/// Its client, added when the table doesn't have it yet.
[[nodiscard]] ClaveCliente ClienteDe(const LineaComprobada& linea);
[[nodiscard]] NombresCliente NombresDe(const LineaComprobada& linea);

/// `tipCp` is the type of a cash-sale voucher, the empty text for any other.
[[nodiscard]] ClaveComprobante ComprobanteDe(const LineaComprobada& linea, const QString& tipCp);

/// The rest of a perception voucher, with the perception that the rate in force gives.
[[nodiscard]] CamposComprobante CamposDe(const LineaComprobada& linea, TasaImportacion& tasas);

/// Its payment voucher.
[[nodiscard]] ComprobanteDePago PagoDe(const LineaComprobada& linea);

} // namespace xa518
