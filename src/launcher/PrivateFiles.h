#pragma once

#include <QString>

namespace xa518 {

/// Makes a folder that only its owner may enter, and what leads to it. Raises `Error` (`AccesoAlDisco`).
void CreaCarpetaPrivada(const QString& ruta);

/// Copies a file to one that only its owner may read. A file that stood there stays until the last byte of the new one
/// is on the disk. Raises `Error` (`AccesoAlDisco`).
void CopiaPrivada(const QString& origen, const QString& destino);

} // namespace xa518
