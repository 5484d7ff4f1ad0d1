#pragma once

namespace xa518 {

/// There is a screen on which a window can open. To be asked before the application object is made: without a screen
/// that ends the program on the spot. A platform chosen by the user is taken at its word.
[[nodiscard]] bool HayPantalla();

} // namespace xa518
