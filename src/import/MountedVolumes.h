#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

/// The volumes from which a person may take a file, by their root folders: the drives, or what is mounted of disks.
[[nodiscard]] QStringList VolumenesMontados();

/// The root of the program's drive.
[[nodiscard]] QString RaizDelPrograma();

} // namespace xa518
