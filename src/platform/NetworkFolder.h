#pragma once

#include <QByteArray>
#include <QString>

namespace xa518 {

/// Whether a file lies, or would lie, in a folder of another machine: by the file system of the nearest folder that
/// exists.
[[nodiscard]] bool EstaEnRed(const QString& ruta);

/// Whether a file system of that name, as the system calls it, is one that lies on another machine.
[[nodiscard]] bool EsSistemaDeRed(const QByteArray& nombre);

} // namespace xa518
