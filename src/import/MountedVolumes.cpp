#include "import/MountedVolumes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What the system mounts for itself is no place to look for a file.
bool EsDeDatos(const QStorageInfo& volumen) {
    const QString raiz = volumen.rootPath();
    if (raiz == QDir::rootPath())
        return true;
#ifndef Q_OS_WIN
    static const QStringList delSistema{u"/boot"_s, u"/etc"_s, u"/snap"_s, u"/usr"_s, u"/var"_s};
    if (std::any_of(delSistema.begin(), delSistema.end(),
                    [&](const QString& otra) { return raiz == otra || raiz.startsWith(otra + u'/'); }) ||
        !volumen.device().startsWith("/"))
        return false;
#endif
    return QFileInfo(raiz).isDir();
}

} // namespace

QStringList VolumenesMontados() {
    QStringList raices;
    for (const QStorageInfo& volumen : QStorageInfo::mountedVolumes()) {
        if (EsDeDatos(volumen) && !raices.contains(volumen.rootPath()))
            raices.append(volumen.rootPath());
    }
    if (raices.isEmpty())
        raices.append(RaizDelPrograma());
    std::sort(raices.begin(), raices.end());
    return raices;
}

QList<Lugar> CarpetasPersonales() {
    QList<Lugar> lugares;
    for (const Lugar& lugar :
         {Lugar{u"Carpeta personal"_s, QDir::homePath()},
          Lugar{u"Documentos"_s, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)}}) {
        const bool repetida = std::any_of(lugares.begin(), lugares.end(),
                                          [&](const Lugar& anterior) { return anterior.ruta == lugar.ruta; });
        if (!repetida && QFileInfo(lugar.ruta).isDir())
            lugares.append(lugar);
    }
    return lugares;
}

QString RaizDelPrograma() {
#ifdef Q_OS_WIN
    return QCoreApplication::applicationDirPath().left(3);
#else
    return QDir::rootPath();
#endif
}

} // namespace xa518
