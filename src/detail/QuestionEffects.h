#pragma once

#include "form518/RateCatalog.h"

namespace xa518 {

/// The questions whose answer changes which others are live.
enum class Pregunta { CpFact, Listado, Venta };

/// What an answer does to the questions after it. The frame of the means of payment is disabled in every case: its
/// question could be answered in band C, were the frame ever shown.
struct EfectoPregunta {
    enum class Listado {
        Igual,   ///< untouched
        Activo,  ///< enabled, its answer kept
        Borrado, ///< disabled and its answer cleared
    };
    Listado listado;
    bool medPago; ///< `OptMedPago` and its label enabled; otherwise disabled and its answer cleared

    bool operator==(const EfectoPregunta&) const = default;
};

/// `indice` is the option clicked: 0 "No", 1 "Si".
[[nodiscard]] EfectoPregunta EfectoDe(Pregunta pregunta, Banda banda, int indice);

} // namespace xa518
