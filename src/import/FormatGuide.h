#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

/// What holds for both kinds of import file, a sentence each: their lines, their characters, and what bars one whole.
[[nodiscard]] QStringList ReglasDeArchivo();

/// The layout of both kinds of import file as plain text, for whoever makes them. The guide and the help say the same.
[[nodiscard]] QString GuiaDeFormatos();

} // namespace xa518
