#pragma once

#include "values/Error.h"

class QFileDevice;
class QIODevice;

namespace xa518 {

/// What was tried on a file.
enum class Intento { Leer, Escribir };

// Why a file failed, in the one place where that is put into words: the file by its full name, and the reason as its
// path shows it (a folder that isn't there, a right that is missing) or as the device tells it (a full disk). A file to
// be read that isn't there is `ArchivoNoEncontrado`, anything else `AccesoAlDisco`. The system's own words are the
// detail.

[[nodiscard]] Error FallaDeArchivo(Intento intento, const QString& ruta);
/// For a device that has just failed.
[[nodiscard]] Error FallaDeArchivo(Intento intento, const QIODevice& dispositivo);
/// The same for a file that goes by another name than its device's.
[[nodiscard]] Error FallaDeArchivo(Intento intento, const QString& ruta, const QFileDevice& archivo);
/// A folder in which no file can be made.
[[nodiscard]] Error FallaDeCarpeta(const QString& carpeta);

} // namespace xa518
