#include "platform/NetworkFolder.h"

#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace xa518 {

namespace {

QString CarpetaQueExiste(const QString& ruta) {
    QFileInfo lugar(ruta);
    while (!lugar.exists() && !lugar.isRoot() && lugar.absolutePath() != lugar.absoluteFilePath())
        lugar.setFile(lugar.absolutePath());
    return lugar.absoluteFilePath();
}

} // namespace

bool EsSistemaDeRed(const QByteArray& nombre) {
    static const QSet<QByteArray> deRed = {"nfs",   "nfs4",  "cifs", "smb",        "smb2",        "smb3",
                                           "smbfs", "ncpfs", "afs",  "ceph",       "glusterfs",   "fuse.glusterfs",
                                           "9p",    "davfs", "coda", "fuse.sshfs", "fuse.rclone", "fuse.davfs2"};
    return deRed.contains(nombre.toLower());
}

#ifdef Q_OS_WIN
/// The system tells the kind of a drive by its root, a share's among them.
bool EstaEnRed(const QString& ruta) {
    const QString raiz = QStorageInfo(CarpetaQueExiste(ruta)).rootPath().replace(u'/', u'\\');
    const QString conBarra = raiz.endsWith(u'\\') ? raiz : raiz + u'\\';
    return raiz.startsWith(u"\\\\") ||
           GetDriveTypeW(reinterpret_cast<const wchar_t*>(conBarra.utf16())) == DRIVE_REMOTE;
}
#else
bool EstaEnRed(const QString& ruta) {
    return EsSistemaDeRed(QStorageInfo(CarpetaQueExiste(ruta)).fileSystemType());
}
#endif

} // namespace xa518
