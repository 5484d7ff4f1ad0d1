#pragma once

#include "values/Message.h"

#include <QString>
#include <QStringList>

namespace xa518 {

/// Starts a module by the name of its program, found in `carpeta`, where this program lies, or else on the PATH, and
/// doesn't wait for it. Refused, with what to do, when it isn't there or doesn't start.
[[nodiscard]] Veredicto IniciaModulo(const QString& modulo, const QString& carpeta, const QStringList& argumentos = {});

} // namespace xa518
