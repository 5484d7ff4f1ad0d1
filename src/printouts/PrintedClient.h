#pragma once

#include <QString>

namespace xa518 {

class Registros;

/// A client as the print-outs show it.
struct ClienteImpreso {
    int tipoDoc = 0;
    QString numero;
    QString nombre;
    QString base;
    QString percepcion;

    /// The columns that a query of clients takes, in the order in which `De` reads them from `primera` on.
    [[nodiscard]] static QString Columnas();
    [[nodiscard]] static ClienteImpreso De(const Registros& fila, int primera);
};

} // namespace xa518
