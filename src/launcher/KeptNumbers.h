#pragma once

#include "family/FormDescription.h"

#include <QString>
#include <QStringList>

namespace xa518 {

/// The copies that the numbers are read from.
struct CopiasConNumeros {
    QString vigente;   ///< a sound one of the base as it stands; empty when there is none
    QStringList todas; ///< the newest first
};

/// A copy that takes the base's place takes back what was done, and not what left the house meanwhile. So `nueva`, the
/// file that is about to take it, gets the last numbers that were given to sendings of these forms, the register of the
/// reports, whose files no restore touches, and the log of who changed what. Raises `Error`, and then `nueva` is as it
/// was.
void ConservaNumeros(const QString& nueva, const CopiasConNumeros& copias, const Formularios& formularios);

} // namespace xa518
