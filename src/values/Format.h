#pragma once

#include "values/Decimal.h"

#include <QString>
#include <QStringView>

namespace xa518 {

/// Shows a text through a number mask: "#" an optional digit, "0" a forced one, "," between digits groups thousands,
/// ";" starts the section for negative values, anything else stands as it is.
///
/// A text that reads as a number is converted first (see `EsNumerico`; parentheses mean negative), rounded to the
/// mask's decimals with ties away from zero. Other text comes back unchanged, the empty text stays empty. Whole
/// digits are never cut, a zero carries no sign, and the machine's locale is never asked.
[[nodiscard]] QString Format(QStringView texto, QStringView mascara);
[[nodiscard]] QString Format(const Decimal& valor, QStringView mascara);
[[nodiscard]] QString Format(Importe valor, QStringView mascara);
[[nodiscard]] QString Format(qint64 valor, QStringView mascara);

} // namespace xa518
