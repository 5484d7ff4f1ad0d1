#pragma once

#include <QMap>
#include <QString>

namespace xa518 {

/// How many rows each table has, by its name with its schema.
using FilasPorTabla = QMap<QString, qint64>;

/// Writes all that a server's base holds at one moment into a file that isn't there yet, by the server's own program
/// pg_dump in its custom format, and reads it through: it lists every table, and has as many rows of each as the base
/// had at that moment. Raises `ErrorBase`; also when the program is missing.
void VuelcaBase(const QString& conexion, const QString& archivo);

/// The rows that such a file holds, by pg_restore. Raises `ErrorBase` for any other file.
[[nodiscard]] FilasPorTabla FilasDeVolcado(const QString& archivo);

/// Those that a base holds now.
[[nodiscard]] FilasPorTabla FilasDeBase(const QString& conexion);

/// Puts what such a file holds into an empty database, in one transaction, and counts it there. Everything belongs to
/// the login of the connection, and nobody else has any right. Raises `ErrorBase`.
void LlenaDeVolcado(const QString& archivo, const QString& conexion);

} // namespace xa518
