#pragma once

#include <QString>

namespace xa518 {

class Avance;

/// Writes all that a server's base holds at one moment into a file that isn't there yet, by the server's own program
/// pg_dump in its custom format, and reads it through: it lists every table, and has as many rows of each as the base
/// had at that moment. Raises `ErrorBase`, also when the program is missing, and `Detenido`, which ends the program.
void VuelcaBase(const QString& conexion, const QString& archivo, Avance& avance);

/// Puts what such a file holds into an empty database, in one transaction, and counts it there. Everything belongs to
/// the login of the connection, and nobody else has any right. Raises `ErrorBase` and `Detenido`.
void LlenaDeVolcado(const QString& archivo, const QString& conexion, Avance& avance);

} // namespace xa518
