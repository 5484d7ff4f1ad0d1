#pragma once

#include "data/LongList.h"

namespace xa518 {

struct Proceso;

/// The columns of the print dialog's list, by position. The two kinds of declarations part after the state.
struct ColumnaImprimir {
    enum : int { Ruc, Nombre, Periodo, PeriodoMostrado, Formulario, Estado, Rectifica };
};
struct ColumnaImprimirEnviada {
    enum : int { FecEnv = ColumnaImprimir::Estado + 1, Correl, NOrden, Control, Rectifica };
};

/// The declarations that the print dialog offers, registered or sent, those of the user or all, by his kind.
[[nodiscard]] ConsultaDeLista SqlParaImprimir(const Proceso& proceso, bool enviadas);

} // namespace xa518
