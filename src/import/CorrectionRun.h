#pragma once

#include "import/Correction.h"
#include "import/ImportRun.h"

namespace xa518 {

class Avance;

/// How an import of lines that were put right ended.
struct DesenlaceDeCorreccion {
    ResultadoImportacion resultado; ///< of the run over those that a file may have
    bool corrio = false;            ///< there was such a line; otherwise the result says nothing
    QList<VeredictoDeLinea> veredictos;
};

/// Runs some of the lines, in their order, just as a file of the declaration with these lines, logs, totals and all. A
/// line that would bar the whole file is told as its own fault and left out, so that it doesn't bar the others. What a
/// stopped or failed run did not come to, or lost, has no verdict. Raises `Error` when their file can't be written.
[[nodiscard]] DesenlaceDeCorreccion CorreCorregidas(Proceso& proceso, const ClaveDeclaracion& clave,
                                                    const Correccion& correccion, const QList<int>& lineas, bool prueba,
                                                    Avance& avance);

} // namespace xa518
