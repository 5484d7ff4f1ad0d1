#pragma once

#include <QSize>

class QWidget;

namespace xa518 {

/// The largest that a window can be with its whole frame on its screen.
[[nodiscard]] QSize SitioEnPantalla(const QWidget& ventana);

/// Before a form shows: no larger than its screen, its window frame included, and wholly on it. What asks for more
/// room than there is, as at a large scale, is moved into an area that scrolls and follows the focus.
void CabeEnPantalla(QWidget& forma);

} // namespace xa518
