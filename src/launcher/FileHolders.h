#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

/// The other programs of this user that have the file open, each as "name (process)". Where the system doesn't tell,
/// none.
[[nodiscard]] QStringList ProgramasQueUsan(const QString& ruta);

/// Another file can get this one's name. Not on Windows while somebody, be it this program, has it open.
[[nodiscard]] bool SeDejaReemplazar(const QString& ruta);

} // namespace xa518
