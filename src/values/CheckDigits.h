#pragma once

#include <QString>
#include <QStringView>

namespace xa518 {

/// The number with its modulus-11 check digit behind it; empty for an empty number.
/// The argument is cut to its first 17 characters and trimmed in place, which callers rely on.
[[nodiscard]] QString DigitoVerificador(QString& numero);

/// The two check digits of an order number: `parte1` the control number, taken to have eight characters, and `parte2`
/// the order number.
[[nodiscard]] QString DigitosOrden(QString parte1, const QString& parte2);

/// Compared as text: "07" and "7" differ.
[[nodiscard]] bool ValidaDigitosOrden(const QString& parte1, const QString& parte2, QStringView digitos);

/// Adds `paso` to `contador` and returns the new value as text.
QString SumaTexto(int& contador, int paso);

} // namespace xa518
