#pragma once

#include "form518/Answers.h"
#include "form518/RateCatalog.h"
#include "values/Decimal.h"

#include <QString>

#include <optional>

namespace xa518 {

/// The class of a voucher, "1" to "6", or empty when the answers give none. In band C the means of payment can't be
/// answered, since its frame is hidden, so that credit with a listed client has no class. Wanted: the branch is ready
/// for the day the frame is shown.
[[nodiscard]] QString ClaseTasa(Banda banda, const Respuestas& respuestas);

/// `lblTipo`: "3" without tax credit, otherwise "1" up to the period of catalogue "830" and "2" outside.
[[nodiscard]] QString LblTipo(Periodo declarado, Periodo primerIgv, const Contestacion& cpFact);

/// Factor and rate of one voucher of the declared period.
class TasaPercepcion {
  public:
    TasaPercepcion(Base& base, Periodo declarado, Periodo primerIgv);

    /// The catalogue row for the answers; the class comes from the declared period, the row within it from the month
    /// of issue. "0" and "0" when none applies, as without a month.
    [[nodiscard]] FilaTasa Calcular(const Respuestas& respuestas, Periodo emision);

  private:
    Banda m_banda;
    CatalogoTasas m_catalogo;
};

/// The factor as a percentage: "##0.#0".
[[nodiscard]] QString TextoFactor(const QString& factor);

/// The amount charged, cut to 999999999999.99.
[[nodiscard]] QString LimitaMonto(const QString& monto);

/// Amount times the factor of its row, fixed to four decimals with ties to even and then to two with ties away: rounded
/// twice, in this order. One blank for an empty amount. Raises `Desbordamiento`.
[[nodiscard]] QString Percepcion(const QString& monto, const FilaTasa& fila);

/// The general sales tax in force in a period, from catalogue `numeroIgv`: the row with the latest start not after it,
/// as a number in its shortest form. Empty when there is none.
[[nodiscard]] QString IniIgv(Base& base, const QString& argumento, const QString& numeroIgv, Periodo periodo);

} // namespace xa518
