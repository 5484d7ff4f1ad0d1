#pragma once

#include "data/DeclarationKey.h"

#include <QList>
#include <QString>

namespace xa518 {

struct Proceso;

/// A row of the print dialog's list.
struct FilaImprimir {
    QString docIdD;
    QString nombre;
    QString periodo;         ///< `yyyymm`
    QString periodoMostrado; ///< `mmyyyy`
    QString formulario;
    QString estado;
    QString rectifica;

    // Only of sent copies.
    QString fecEnv;
    QString correl;
    QString norden;
    QString control;

    [[nodiscard]] ClaveDeclaracion Clave(bool enviada) const;
};

/// The declarations that the print dialog offers, registered or sent, those of the user or all, by his kind.
[[nodiscard]] QList<FilaImprimir> DeclaracionesParaImprimir(Proceso& proceso, bool enviadas);

} // namespace xa518
