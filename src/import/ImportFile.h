#pragma once

#include <QString>

namespace xa518 {

struct FormatoImportacion;
struct Proceso;

/// The bare name of the import file of the open declaration.
[[nodiscard]] QString NombreDeArchivo(const Proceso& proceso, const FormatoImportacion& formato);

/// The file's full name in a folder, the case of its letters as the folder has it. Raises `Error`: `ArgumentoInvalido`
/// for an empty folder, `ArchivoNoEncontrado` when the folder lacks the file.
[[nodiscard]] QString BuscaArchivo(const QString& carpeta, const QString& nombre);

} // namespace xa518
