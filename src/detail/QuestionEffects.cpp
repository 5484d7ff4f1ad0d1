#include "detail/QuestionEffects.h"

#include <array>

namespace xa518 {

namespace {

using enum EfectoPregunta::Listado;

/// By band and option clicked.
using Efectos = std::array<std::array<EfectoPregunta, 2>, 3>;

constexpr Efectos kCpFact = {{
    {{{Activo, false}, {Activo, false}}}, // A
    {{{Activo, false}, {Activo, false}}}, // B
    {{{Borrado, false}, {Activo, true}}}, // C
}};

/// The answers about the list and about the zone have the same outcome.
constexpr Efectos kLasOtras = {{
    {{{Igual, false}, {Igual, false}}}, // A
    {{{Igual, false}, {Igual, false}}}, // B
    {{{Igual, false}, {Igual, true}}},  // C
}};

} // namespace

EfectoPregunta EfectoDe(Pregunta pregunta, Banda banda, int indice) {
    const Efectos& efectos = pregunta == Pregunta::CpFact ? kCpFact : kLasOtras;
    return efectos.at(static_cast<size_t>(banda)).at(static_cast<size_t>(indice));
}

} // namespace xa518
