#pragma once

#include <optional>

namespace xa518 {

/// Of a question: nothing while it is unanswered, otherwise yes or no.
using Contestacion = std::optional<bool>;

/// The answers on which the law makes the rate of a voucher depend.
struct Respuestas {
    Contestacion cpFact{};  ///< `OptCpFact`: the payment vouchers give a right to tax credit
    Contestacion listado{}; ///< `OptListado`: the client is on the published list
    Contestacion venta{};   ///< `OptVenta`: materials for the earthquake zone
    Contestacion medPago{}; ///< `OptMedPago`: authorised means of payment
};

} // namespace xa518
