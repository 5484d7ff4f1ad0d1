#pragma once

#include <QString>
#include <QVersionNumber>

namespace xa518 {

class ArchivoPerfil;

/// What is new for users in the versions after `vista` up to `propia`, as it stands in `pagina`: Markdown with a
/// heading
/// "## Versión N" for each version. Empty when there is nothing.
[[nodiscard]] QString NovedadesEntre(const QString& pagina, const QVersionNumber& vista, const QVersionNumber& propia);

/// What is new since the version that was last told of here, or that made the installation; told once, the profile file
/// remembers it. A first installation has nothing new. Nor has one whose profile file can't be written: it would be
/// told at every start.
[[nodiscard]] QString NovedadesPorVer(const ArchivoPerfil& perfil, const QString& pagina, const QVersionNumber& propia);

} // namespace xa518
