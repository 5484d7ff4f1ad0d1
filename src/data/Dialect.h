#pragma once

#include <QString>

namespace xa518 {

/// Turns the system's SQL into SQLite's: `DELETE * FROM`, `[name]`, `&` (which takes null as the empty text), and the
/// functions mid, mid$, left, len. Texts in quotes are left alone. `val`, `format`, `checksum` and an exact `sum`
/// are functions that the engine adds; what turns a text into a number within a sum, `* 1` or `val`, is left out,
/// because `sum` reads the text itself.
[[nodiscard]] QString TraduceASqlite(const QString& sql);

} // namespace xa518
