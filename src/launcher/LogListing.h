#pragma once

#include "family/ChangeLog.h"

#include <QList>

class QTextStream;

namespace xa518 {

/// How the command line writes a list.
enum class FormaDeLista { Texto, Csv, Json };

/// The log of who changed what, a change a line; as JSON one object on one line, with the exit code as every answer.
void EscribeBitacora(const QList<Asiento>& asientos, FormaDeLista forma, QTextStream& salida);

/// What was refused or failed, as JSON.
void EscribeDefecto(int codigo, const QStringList& mensajes, QTextStream& salida);

} // namespace xa518
