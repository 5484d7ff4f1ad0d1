#include "values/PrivateAccess.h"

#include <QFile>
#include <QFileInfo>

namespace xa518 {

namespace {

constexpr auto kDelDuenio = QFile::ReadOwner | QFile::WriteOwner;

} // namespace

bool HazPrivado(const QString& ruta) {
    return QFile::setPermissions(ruta, QFileInfo(ruta).isDir() ? kDelDuenio | QFile::ExeOwner : kDelDuenio);
}

bool HazPrivado(QFileDevice& archivo) {
    return archivo.setPermissions(kDelDuenio);
}

} // namespace xa518
