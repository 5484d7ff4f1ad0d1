#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

/// Where a value stands in a text of fixed columns; positions count from 1.
struct Tramo {
    QString columna;
    int inicio;
    int ancho;
};

/// A text of fixed columns: its constant parts, and the pieces that a row's values fill.
struct Plantilla {
    QString base;
    QList<Tramo> tramos;

    /// Puts the values in their places; blanks fill what is left. Raises `Error` (`ArgumentoInvalido`) for a value
    /// wider than its place: it must not run into its neighbour.
    [[nodiscard]] QString Compone(const QHash<QString, QString>& valores) const;
    [[nodiscard]] QStringList Columnas() const;
};

/// How a readable file of the catalogue becomes rows of `PARAM`. Each file also has the column `correl`, which goes to
/// `correl_param`.
struct Catalogado {
    QString archivo;
    QString numero;
    Plantilla argumento; ///< trailing blanks are cut: the codes are looked up as bare texts
    Plantilla funcion;
};

/// The catalogues that every form of the family reads.
[[nodiscard]] const QList<Catalogado>& CatalogosComunes();

} // namespace xa518
