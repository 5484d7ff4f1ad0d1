#pragma once

class QEvent;

namespace xa518 {

/// Whether a key is to do nothing, in whichever window of the program it arrives: a key held down decides
/// once.
[[nodiscard]] bool EsTeclaPerdida(const QEvent& evento);

} // namespace xa518
