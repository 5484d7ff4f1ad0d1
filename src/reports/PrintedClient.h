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

/// The company's name, or for a person, whose company name is null or blank, surnames and first names.
[[nodiscard]] QString NombreCliente(const QString& razon, const QString& paterno, const QString& materno,
                                    const QString& nombres);

} // namespace xa518
