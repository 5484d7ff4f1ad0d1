#pragma once

#include "data/CatalogLayout.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

namespace xa518 {

/// A table of a declaration. The rows of its sent copies lie in the twin of the same name with an "H" before it.
struct TablaDeDeclaracion {
    QString nombre;
    int numericas;           ///< the first columns, which the checksum sums as numbers
    int numericasEnviada;    ///< the same of the twin
    int turnoAlEliminar;     ///< a deletion goes by it, a save and a sending by the place in the list
    bool copiaQueda = false; ///< the twin's rows outlive their copy when that is deleted
};

/// How a form's boxes are stored.
struct ReglaDeCasillas {
    QSet<QString> talCual;             ///< stored as given; the value of any other is formatted as a whole number
    QHash<QString, QString> idCasilla; ///< `idcasilla` where it isn't "01"
};

/// What a form tells of itself, in one place, to everything that serves whatever form: the launcher, the installation,
/// the sending, the deletion, the checksum. Folders and files are names of resources.
struct Formulario {
    QString numero;   ///< also the name of its folder in the installation
    QString nombre;   ///< for people
    QString modulo;   ///< its program, beside the launcher
    QString ayuda;    ///< its help file, which keeps its name when it is installed
    QString esquema;  ///< folder of the steps that make its tables, numbered through with those of all forms
    QString catalogo; ///< folder of the files that fill its catalogues
    QList<Catalogado> catalogos;
    QString ejemplo;                    ///< folder of its sample company; empty when there is none
    QList<TablaDeDeclaracion> tablas;   ///< head and boxes among them
    QHash<QString, QString> informes{}; ///< the titles of its reports by their codes in `SPOOL`
    ReglaDeCasillas casillas{};

    /// How many columns of a table, or of a twin, the checksum sums as numbers. Raises `ErrorBase` (`TablaNoExiste`)
    /// for a table that is none of a declaration.
    [[nodiscard]] int NumericasDe(const QString& tabla) const;
};

/// The forms that a program knows.
using Formularios = QList<Formulario>;

/// The form of that number. Raises `Error` (`ArgumentoInvalido`) when it isn't among them.
[[nodiscard]] const Formulario& FormularioDe(const Formularios& formularios, const QString& numero);

} // namespace xa518
