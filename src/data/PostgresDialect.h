#pragma once

#include <QString>

namespace xa518 {

/// Turns the system's SQL into PostgreSQL's. Its functions and operators are the server's own or those of the schema
/// `dialecto`; what is left is `DELETE * FROM`, `[name]`, and the order of rows and groups: texts without case, null
/// before everything else. A "CREATE TABLE" becomes the statements of `TraduceTabla`.
[[nodiscard]] QString TraduceAPostgres(const QString& sql);

/// A table of the schema's files for the server: texts compare by their codes, keys by small letters, and a last column
/// numbers the rows in the order in which they were entered. A work table (TMP...) notes who changes it.
[[nodiscard]] QString TraduceTabla(const QString& sql);

/// The column that numbers the rows.
[[nodiscard]] const QString& ColumnaDeAlta();

} // namespace xa518
