#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

/// The volumes from which a person may take a file, by their root folders: the drives, or what is mounted of disks.
[[nodiscard]] QStringList VolumenesMontados();

struct Lugar {
    QString nombre;
    QString ruta;
};

/// The folders in which a person keeps files, those that exist: home and documents.
[[nodiscard]] QList<Lugar> CarpetasPersonales();

/// The root of the program's drive.
[[nodiscard]] QString RaizDelPrograma();

} // namespace xa518
