#pragma once

#include "values/Message.h"
#include "values/Period.h"

#include <QDate>
#include <QString>

#include <functional>
#include <optional>

namespace xa518 {

/// The fields of the two voucher dialogs that a rule may name: the perception voucher's, and the payment voucher's,
/// which has no question about the list.
enum class CampoComprobante { Tipo, Serie, Numero, Fecha, Monto, Listado };
using VeredictoComprobante = VeredictoDe<CampoComprobante>;

// Dates are read as the masked field shows them, `dd/mm/yyyy` with underscores for what is missing, so that a day which
// the calendar lacks still has its month.

/// False when the date lies after today.
[[nodiscard]] bool Fechadesistema(QStringView fecha, const QDate& hoy);

/// Not touched, or no day of the calendar.
[[nodiscard]] VeredictoComprobante ValidaFechaEscrita(const QString& fecha);

/// `ValidaFecha` of a perception voucher, of a complete date: issued in the declared month and not after today. The
/// refusal by the clock names no field, so that the focus stays where it is: wanted, today may be at fault.
[[nodiscard]] VeredictoComprobante ValidaFecha(const QString& fecha, Periodo declarado, const QDate& hoy);

/// `ValidaFechaOrigen` of a payment voucher, of a complete date, which may be older than the declared month. `confirma`
/// shows a question about a date before 2005 and tells whether to go on; without it such a date passes. No verdict when
/// the person takes the date back there: all has been said.
using Confirmacion = std::function<bool(const Mensaje&)>;
[[nodiscard]] std::optional<VeredictoComprobante> ValidaFechaOrigen(const QString& fecha, Periodo declarado,
                                                                    const QDate& hoy, const Confirmacion& confirma);

} // namespace xa518
