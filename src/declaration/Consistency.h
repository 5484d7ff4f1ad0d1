#pragma once

#include "declaration/Declaration.h"
#include "values/Message.h"

#include <QStringList>

#include <optional>

namespace xa518 {

/// More or less is paid than is owed: at most one of the two warnings, which stop nothing.
[[nodiscard]] std::optional<Mensaje> AvisoDeImporte(const Declaracion& declaracion);

/// Every rule that the declaration breaks, one line each, in the order of the rules. Empty for a clean declaration.
/// The detail isn't looked at: it was checked when it was entered.
[[nodiscard]] QStringList Inconsistencias(const Declaracion& declaracion);

/// What the validation says when nothing is wrong. With the exclamation icon, even after a warning:
/// wanted, it is known so.
[[nodiscard]] Mensaje SinInconsistencias();

/// The file that holds the lines of the last validation.
[[nodiscard]] QString RutaMens(const QString& sysPath, const QString& formulario);

/// Replaces the file by these lines; raises `Error` (`AccesoAlDisco`) when its folder can't be written.
void EscribeMens(const QString& ruta, const QStringList& lineas);

/// The file's whole text; raises `Error` (`AccesoAlDisco`) when it can't be read.
[[nodiscard]] QString LeeMens(const QString& ruta);

} // namespace xa518
