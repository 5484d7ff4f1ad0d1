#pragma once

#include "data/DocumentTypes.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace xa518 {

class Base;

/// What the catalogue allows in a file of cash sales, read once for a run.
struct TiposDeVenta {
    /// Of the client's document, by code as two digits; the rule for its number, nothing when the catalogue has none.
    QHash<QString, std::optional<TipoDocumento>> documentos;
    QStringList comprobantes; ///< of the voucher
};

[[nodiscard]] TiposDeVenta LeeTiposDeVenta(Base& base);

} // namespace xa518
