#include "form518/LawBands.h"

namespace xa518 {

namespace {

constexpr Periodo kFactorDefinitivo{2005, 4};
constexpr Periodo kZonaAfectada{2008, 3};

} // namespace

Banda BandaDe(Periodo declarado, Periodo primerIgv) {
    if (declarado < kPrimerPeriodo)
        return Banda::C;
    if (!PreguntaPorZona(declarado))
        return Banda::A;
    return declarado <= primerIgv ? Banda::B : Banda::C;
}

bool HastaPrimerIgv(Periodo declarado, Periodo primerIgv) {
    return kPrimerPeriodo <= declarado && declarado <= primerIgv;
}

bool PreguntaPorZona(Periodo declarado) {
    return declarado >= kZonaAfectada;
}

bool AdmiteSerieConLetra(const QDate& emision) {
    static const QDate desde(2010, 7, 19);
    return emision >= desde;
}

bool ConFactorInicial(Periodo declarado) {
    return declarado < kFactorDefinitivo;
}

} // namespace xa518
