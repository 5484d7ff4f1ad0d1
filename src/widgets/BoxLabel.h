#pragma once

class QLabel;

namespace xa518 {

/// The number of a box beside its amount: small, framed, and out of the way of the tab order.
void ComoNumeroDeCasilla(QLabel& rotulo);

} // namespace xa518
