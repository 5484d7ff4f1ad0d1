#pragma once

#include <QString>

namespace xa518 {

/// As many characters as a cheque's number may have.
inline constexpr int kLargoCheque = 20;

/// A character that may stand in it: a letter without accent, a digit, a blank.
[[nodiscard]] bool EsDeCheque(QChar caracter);

/// Why a text can't be a cheque's number, as what is said of it; empty when it can. The empty text can: that it is
/// missing is an inconsistency of the declaration and keeps none from being saved.
[[nodiscard]] QString DefectoDeCheque(QStringView numero);

} // namespace xa518
