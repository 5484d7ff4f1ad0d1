#pragma once

#include <QString>

namespace xa518 {

class Correccion;

/// Writes the lines as a file to be imported, in Windows-1252 and with CRLF, whole or not at all; those that have been
/// imported stay out. Where nothing of the original has been imported they stand among its other lines; the new file
/// may take its place. Raises `Error`: `ArgumentoInvalido` naming the line when one has a character that
/// Windows-1252 lacks, `AccesoAlDisco` when the original has changed or a file fails.
void GuardaCorregido(Correccion& correccion, const QString& ruta);

} // namespace xa518
