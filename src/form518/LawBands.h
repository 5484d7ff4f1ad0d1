#pragma once

#include "values/Period.h"

#include <QDate>

namespace xa518 {

/// The first period that can be declared.
inline constexpr Periodo kPrimerPeriodo{2005, 1};

/// Stretches of declared periods in which the law asks different questions of a sale.
enum class Banda {
    A, ///< 01/2005 to 02/2008
    B, ///< 03/2008 to the period of catalogue "830": asks for the earthquake zone
    C, ///< any other period, so also one before 01/2005
};

/// Without a period of catalogue "830" no declaration is in band B.
[[nodiscard]] Banda BandaDe(Periodo declarado, Periodo primerIgv);

/// From the first period up to that of catalogue "830": there the means of payment don't count.
[[nodiscard]] bool HastaPrimerIgv(Periodo declarado, Periodo primerIgv);

/// Somebody is asked about the earthquake zone: from 03/2008 on.
[[nodiscard]] bool PreguntaPorZona(Periodo declarado);

/// The series of a voucher of that day may begin with a letter: from 19 July 2010 on. Before, it must begin with a
/// digit.
[[nodiscard]] bool AdmiteSerieConLetra(const QDate& emision);

/// The perception is computed with the factor that the law began with: before 04/2005.
[[nodiscard]] bool ConFactorInicial(Periodo declarado);

} // namespace xa518
