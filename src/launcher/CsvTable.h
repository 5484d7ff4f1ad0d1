#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

/// The rows of a UTF-8 CSV text with a header line, each with the named columns' values in the order asked for.
/// The file holds exactly these columns, in any order. Raises `Error` (`ArgumentoInvalido`), with file and line, for
/// anything else; `nombre` is the file's name for that message.
[[nodiscard]] QList<QStringList> LeeCsv(const QString& nombre, const QByteArray& contenido,
                                        const QStringList& columnas);

/// The same for a file; `ArchivoNoEncontrado` when it can't be read.
[[nodiscard]] QList<QStringList> LeeArchivoCsv(const QString& ruta, const QStringList& columnas);

} // namespace xa518
