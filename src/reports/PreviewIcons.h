#pragma once

class QWidget;

namespace xa518 {

/// Gives the buttons of the preview's toolbar their drawings, in the colours of the palette in force.
void PonIconos(QWidget& vista);

} // namespace xa518
