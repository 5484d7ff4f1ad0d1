#pragma once

#include "platform/ProfileFile.h"

#include <QStringList>

class QTextStream;

namespace xa518 {

/// What the batch tool stands in, so that a test can replace it.
struct EntornoLote {
    ArchivoPerfil perfil;
    QTextStream& salida;
    QTextStream& errores;
    bool muestraAvance = false; ///< the error stream is a terminal
};

/// The batch tool as a function of its arguments, the program's name first; returns the exit code.
[[nodiscard]] int EjecutaLote(const QStringList& argumentos, const EntornoLote& entorno);

} // namespace xa518
