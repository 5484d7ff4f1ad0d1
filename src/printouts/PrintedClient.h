#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

class FilaUnida;
class Registros;

/// A client as the print-outs show it.
struct ClienteImpreso {
    int tipoDoc = 0;
    QString numero;
    QString nombre;
    QString base;
    QString percepcion;

    /// The columns that a query of clients takes, in the order in which `De` reads them, from `primera` on or joined.
    [[nodiscard]] static QStringList Columnas();
    [[nodiscard]] static ClienteImpreso De(const Registros& fila, int primera);
    [[nodiscard]] static ClienteImpreso De(const FilaUnida& fila);
};

} // namespace xa518
