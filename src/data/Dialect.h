#pragma once

#include <QString>

namespace xa518 {

/// Turns the system's SQL into SQLite's: `DELETE * FROM`, `[name]`, `&` (which takes null as the empty text), and the
/// functions mid, mid$, left, len. Texts in quotes are left alone. `val`, `format` and an exact `sum` are functions
/// that the engine adds.
[[nodiscard]] QString TraduceASqlite(const QString& sql);

} // namespace xa518
