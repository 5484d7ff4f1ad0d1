#pragma once

namespace xa518 {

class Base;

/// The version of the tables that a base carries in its header; 0 for one without tables.
[[nodiscard]] int VersionDe(Base& base);

/// Raises `ErrorBase` (`VersionAjena`) for a base whose tables are not of the version that the program reads and
/// writes.
void ExigeVersion(Base& base, int esperada);

} // namespace xa518
