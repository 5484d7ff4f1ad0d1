#pragma once

class QEvent;
class QObject;

namespace xa518 {

/// Whether a key is to do nothing, in whichever window of the program it arrives: a key held down decides once, and Alt
/// with a letter is an access key or nothing.
[[nodiscard]] bool EsTeclaPerdida(const QObject& receptor, const QEvent& evento);

} // namespace xa518
