#include "launcher/FileHolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

/// A process of somebody else, or one that has just ended, shows nothing.
bool TieneAbierto(const QString& proceso, const fs::path& archivo) {
    const fs::path carpeta = fs::path("/proc") / proceso.toStdString() / "fd";
    std::error_code falla;
    for (fs::directory_iterator abierto(carpeta, falla); !falla && abierto != fs::directory_iterator();
         abierto.increment(falla)) {
        std::error_code cerrado;
        if (fs::read_symlink(abierto->path(), cerrado) == archivo)
            return true;
    }
    return false;
}

QString NombreDe(const QString& proceso) {
    QFile nombre(u"/proc/%1/comm"_s.arg(proceso));
    return nombre.open(QIODevice::ReadOnly) ? QString::fromUtf8(nombre.readAll()).trimmed() : QString();
}

} // namespace

QStringList ProgramasQueUsan(const QString& ruta) {
    QStringList programas;
    const QString real = QFileInfo(ruta).canonicalFilePath();
    if (real.isEmpty())
        return programas;
    const QString propio = QString::number(QCoreApplication::applicationPid());
    const fs::path archivo(real.toStdString());
    for (const QString& proceso : QDir(u"/proc"_s).entryList({u"[0-9]*"_s}, QDir::Dirs)) {
        if (proceso != propio && TieneAbierto(proceso, archivo))
            programas.append(u"%1 (%2)"_s.arg(NombreDe(proceso), proceso));
    }
    return programas;
}

bool SeDejaReemplazar(const QString& /*ruta*/) {
    return true;
}

} // namespace xa518
