#pragma once

#include "values/Decimal.h"

#include <QString>
#include <QStringView>

namespace xa518 {

// Amounts of long reports. They say exactly what `Format` says with the mask, and take a short way for amounts as the
// tables keep them, such as "1234.50": a report shows hundreds of thousands.

/// "###,###,###,##0.00;(###,###,###,##0.00)"
[[nodiscard]] QString MontoConParentesis(QStringView monto);

/// "###,###,###,##0.00"
[[nodiscard]] QString MontoConSigno(QStringView monto);
[[nodiscard]] QString MontoConSigno(const Decimal& monto);

} // namespace xa518
