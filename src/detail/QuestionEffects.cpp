#include "detail/QuestionEffects.h"

#include <array>

namespace xa518 {

namespace {

using enum EfectoPregunta::Listado;

/// By band and option clicked.
using Tabla = std::array<std::array<EfectoPregunta, 2>, 3>;

constexpr Tabla kCpFact = {{
    {{{Activo, false}, {Activo, false}}}, // A
    {{{Activo, false}, {Activo, false}}}, // B
    {{{Borrado, false}, {Activo, true}}}, // C
}};

/// The answers about the list and about the zone have the same outcome.
constexpr Tabla kLasOtras = {{
    {{{Igual, false}, {Igual, false}}}, // A
    {{{Igual, false}, {Igual, false}}}, // B
    {{{Igual, false}, {Igual, true}}},  // C
}};

} // namespace

EfectoPregunta EfectoDe(Pregunta pregunta, Banda banda, int indice) {
    const Tabla& tabla = pregunta == Pregunta::CpFact ? kCpFact : kLasOtras;
    return tabla.at(static_cast<size_t>(banda)).at(static_cast<size_t>(indice));
}

} // namespace xa518
