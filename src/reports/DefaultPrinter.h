#pragma once

#include <QPagedPaintDevice>
#include <QString>

#include <functional>
#include <memory>

namespace xa518 {

/// Gives the device on which a report called so is printed; nothing when there is no printer. The device's origin is
/// the corner of its sheet.
using FabricaImpresora = std::function<std::unique_ptr<QPagedPaintDevice>(const QString& titulo)>;

/// The platform's default printer, on its own paper.
[[nodiscard]] std::unique_ptr<QPagedPaintDevice> ImpresoraPredeterminada(const QString& titulo);

} // namespace xa518
