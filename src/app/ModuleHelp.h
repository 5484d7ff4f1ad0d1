#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace xa518 {

/// What the command line asks for that needs neither window nor screen, `--help` or `--version`, whatever else it says;
/// nothing when it asks for neither.
[[nodiscard]] std::optional<QString> RespuestaSinVentana(const QStringList& argumentos);

} // namespace xa518
