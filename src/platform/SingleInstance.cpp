#include "platform/SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Two ways of naming one executable give one mark.
QString NombreDeMarca(const QString& ejecutable) {
    const QString real = QFileInfo(ejecutable).canonicalFilePath();
    const QByteArray ruta = (real.isEmpty() ? ejecutable : real).toUtf8();
    const QByteArray huella = QCryptographicHash::hash(ruta, QCryptographicHash::Sha256).toHex().first(16);
    return u"xa518-"_s + QString::fromLatin1(huella) + u".lock"_s;
}

} // namespace

InstanciaUnica::InstanciaUnica(const QString& ejecutable, const QString& carpeta)
    : m_marca(QDir(carpeta).filePath(NombreDeMarca(ejecutable))) {}

bool InstanciaUnica::Toma() {
    return m_marca.Toma();
}

QString InstanciaUnica::CarpetaDeMarcas() {
    const QString carpeta = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return carpeta.isEmpty() ? QDir::tempPath() : carpeta;
}

} // namespace xa518
