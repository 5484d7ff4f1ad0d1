#pragma once

#include <QtGlobal>

class QIODevice;

namespace xa518 {

class ReceptorDeRechazadas;

/// Bytes that a line may have to be put right; a file with a longer one is no text.
inline constexpr qsizetype kLargoCorregible = 1 << 20;

/// Hands over the lines that bar a whole file, which has been refused for them, by going through it twice more. Raises
/// `Error` when it can't be read.
void ReuneDefectuosas(QIODevice& archivo, int separadores, ReceptorDeRechazadas& receptor);

} // namespace xa518
