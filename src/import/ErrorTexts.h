#pragma once

#include "import/CheckedLine.h"

#include <QString>

namespace xa518 {

class Base;

/// The wording of a code that the import fixes itself; empty for a code that shows the text of table `ERROR`.
[[nodiscard]] QString TextoFijo(Codigo codigo);

/// What a person is told of a code: its fixed wording, or the text of table `ERROR`.
[[nodiscard]] QString MotivoDe(Base& base, Codigo codigo);

inline const QString kOtroError = QStringLiteral("Otro Error : Verifique Estructura de Tablas y datos a transferir");

} // namespace xa518
