#pragma once

#include "family/FormDescription.h"

#include <QString>
#include <QStringList>

class QTextStream;

namespace xa518 {

class Reloj;

/// What the launcher takes from the machine it runs on.
struct EntornoConsola {
    const Reloj& reloj;
    QString rutaIni;         ///< the shared profile file
    QString carpeta;         ///< where to install when nobody says otherwise
    QString usuario;         ///< who owns what is registered when nobody says otherwise
    Formularios formularios; ///< those that it serves, one at least

    [[nodiscard]] static EntornoConsola DelSistema(const Reloj& reloj, Formularios formularios);
};

/// Where the command line writes.
struct SalidasConsola {
    QTextStream& salida;
    QTextStream& errores;
};

/// Runs the launcher's command line, the program's name first among the arguments; without any other it says that there
/// is no screen for the window. Returns the exit code: 0 done,
/// 2 refused, with the reason on `errores` and nothing written, 3 the database or a file failed.
[[nodiscard]] int EjecutaConsola(const QStringList& argumentos, const SalidasConsola& salidas,
                                 const EntornoConsola& entorno);

} // namespace xa518
