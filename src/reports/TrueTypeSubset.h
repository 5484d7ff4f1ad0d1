#pragma once

#include <QByteArray>

#include <vector>

class QRawFont;

namespace xa518 {

/// A TrueType letter of those glyphs of another one, numbered in the order given, and of the parts that they are
/// composed of. It has no hints, which print-outs don't use. What a damaged letter lacks is an empty glyph.
[[nodiscard]] QByteArray SubconjuntoTrueType(const QRawFont& letra, const std::vector<quint32>& glifos);

} // namespace xa518
