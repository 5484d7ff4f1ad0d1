#pragma once

#include "values/Message.h"

#include <QDate>
#include <QString>

#include <functional>

namespace xa518 {

// Dates are read as the masked field shows them, `dd/mm/yyyy` with underscores for what is missing, so that a day which
// the calendar lacks still has its month.

/// The month of a date, `yyyymm`, from the characters where it stands.
[[nodiscard]] QString PeriodoDeFecha(QStringView fecha);

/// False when the date lies after today.
[[nodiscard]] bool Fechadesistema(QStringView fecha, const QDate& hoy);

/// Not touched, or no day of the calendar.
[[nodiscard]] Veredicto ValidaFechaEscrita(const QString& fecha);

/// `ValidaFecha` of a perception voucher: issued in the declared month and not after today. An incomplete date is
/// refused without a word. The refusal by the clock names no field, so that the focus stays where it is: wanted.
[[nodiscard]] Veredicto ValidaFecha(const QString& fecha, const QString& periodoDeclarado, const QDate& hoy);

/// `ValidaFechaOrigen` of a payment voucher, which may be older than the declared month. `confirma` shows a question
/// about a date before 2005 and tells whether to go on; without it such a date passes.
using Confirmacion = std::function<bool(const Mensaje&)>;
[[nodiscard]] Veredicto ValidaFechaOrigen(const QString& fecha, const QString& periodoDeclarado, const QDate& hoy,
                                          const Confirmacion& confirma);

} // namespace xa518
