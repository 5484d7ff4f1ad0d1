#pragma once

#include <QString>

namespace xa518 {

struct ClaveDeclaracion;
struct FormatoImportacion;

/// The bare name of the import file of a declaration.
[[nodiscard]] QString NombreDeArchivo(const ClaveDeclaracion& clave, const FormatoImportacion& formato);

/// Whether a file bears that name; files that come from other systems may have it in lower case.
[[nodiscard]] bool SeLlama(const QString& ruta, const QString& nombre);

/// The file's full name, the case of its letters as it lies there. `ruta` is its folder, or the file itself. Raises
/// `Error`: `ArgumentoInvalido` for an empty one, `ArchivoNoEncontrado` when the file isn't there, `AccesoAlDisco` when
/// the folder can't be entered.
[[nodiscard]] QString BuscaArchivo(const QString& ruta, const QString& nombre);

/// The SHA-256 of a file in hexadecimal digits. Raises `Error` when it can't be read.
[[nodiscard]] QString HuellaDeArchivo(const QString& ruta);

} // namespace xa518
