#pragma once

#include "family/FormDescription.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

/// A file `NNNN_name.sql` that brings the tables of the base to the version of its number.
struct PasoDeEsquema {
    int version;
    QString ruta;
};

/// The folders of steps: that of the tables that all forms share, and those of the forms.
[[nodiscard]] QStringList CarpetasDelEsquema(const Formularios& formularios);

/// The steps of several folders in the order of their numbers. Raises `Error` (`ArgumentoInvalido`) for a number that
/// comes twice: the second would never be made.
[[nodiscard]] QList<PasoDeEsquema> PasosDelEsquema(const QStringList& carpetas);

/// The version of the tables that a program which knows these forms reads and writes: the number of the last step.
[[nodiscard]] int VersionDelEsquema(const Formularios& formularios);

} // namespace xa518
