#pragma once

class QString;

namespace xa518 {

/// Gives a file the name of another one of the same disk, which it replaces if it is there: in one step, so that there
/// is always the one or the other. False when the system refuses, as Windows does over a file that somebody has open;
/// then both are as they were.
[[nodiscard]] bool TomaElLugar(const QString& archivo, const QString& nombre);

} // namespace xa518
