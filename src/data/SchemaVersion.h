#pragma once

namespace xa518 {

class Base;

/// The version of the tables that this build reads and writes. It stands in the header of the base.
inline constexpr int kVersionEsquema = 2;

/// The version that a base carries; 0 for one without tables.
[[nodiscard]] int VersionDe(Base& base);

/// Raises `ErrorBase` (`VersionAjena`) for a base whose tables are not of `kVersionEsquema`.
void ExigeVersion(Base& base);

} // namespace xa518
