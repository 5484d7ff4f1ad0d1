#include "values/FileFailure.h"

#include "values/Text.h"

#include <QFileDevice>
#include <QFileInfo>
#include <QStorageInfo>

#ifdef Q_OS_WIN
#include <QDir>

#include <qt_windows.h>
#endif

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

struct Causa {
    NumeroError numero = NumeroError::AccesoAlDisco;
    QString motivo; ///< empty when nothing shows it
};

/// The folder, or the first one above it that there is.
QFileInfo PrimeraQueHay(const QString& carpeta) {
    QFileInfo hay(carpeta);
    while (!hay.exists() && !hay.isRoot())
        hay.setFile(hay.absolutePath());
    return hay;
}

Causa DelCamino(const QString& carpeta) {
    const QFileInfo hay = PrimeraQueHay(carpeta);
    if (!hay.isDir())
        return {NumeroError::AccesoAlDisco, u"'%1' no es una carpeta"_s.arg(hay.filePath())};
    if (!hay.isExecutable())
        return {NumeroError::AccesoAlDisco, u"no hay permiso para entrar en la carpeta '%1'"_s.arg(hay.filePath())};
    if (!QFileInfo::exists(carpeta))
        return {NumeroError::ArchivoNoEncontrado, u"no existe la carpeta '%1'"_s.arg(carpeta)};
    return {};
}

/// What keeps a new file out of a folder.
Causa DeLaCarpeta(const QString& carpeta) {
    if (const Causa camino = DelCamino(carpeta); !camino.motivo.isEmpty())
        return {NumeroError::AccesoAlDisco, camino.motivo};
    if (QStorageInfo(carpeta).isReadOnly())
        return {NumeroError::AccesoAlDisco, u"el disco de la carpeta '%1' es de sólo lectura"_s.arg(carpeta)};
    if (!QFileInfo(carpeta).isWritable())
        return {NumeroError::AccesoAlDisco, u"no hay permiso para escribir en la carpeta '%1'"_s.arg(carpeta)};
    return {};
}

#ifdef Q_OS_WIN
/// Another program has the file open and lets nobody read, or write, it meanwhile. What this one has open itself, by
/// the toolkit, keeps nobody out.
bool LoImpideOtro(Intento intento, const QString& ruta) {
    const DWORD quiere = intento == Intento::Leer ? GENERIC_READ : GENERIC_WRITE;
    constexpr DWORD kConTodos = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring nombre = QDir::toNativeSeparators(ruta).toStdWString();
    const HANDLE abierto = CreateFileW(nombre.c_str(), quiere, kConTodos, nullptr, OPEN_EXISTING, 0, nullptr);
    if (abierto == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(abierto);
    return false;
}
#else
bool LoImpideOtro(Intento /*intento*/, const QString& /*ruta*/) {
    return false;
}
#endif

Causa DelArchivo(Intento intento, const QFileInfo& archivo) {
    const bool lee = intento == Intento::Leer;
    if (Causa camino = lee ? DelCamino(archivo.path()) : DeLaCarpeta(archivo.path()); !camino.motivo.isEmpty())
        return camino;
    if (archivo.isDir())
        return {lee ? NumeroError::ArchivoNoEncontrado : NumeroError::AccesoAlDisco, u"es una carpeta"_s};
    if (!archivo.exists())
        return {lee ? NumeroError::ArchivoNoEncontrado : NumeroError::AccesoAlDisco, {}};
    if (lee ? !archivo.isReadable() : !archivo.isWritable())
        return {NumeroError::AccesoAlDisco,
                lee ? u"no hay permiso para leerlo"_s : u"no hay permiso para escribirlo"_s};
    if (LoImpideOtro(intento, archivo.filePath()))
        return {NumeroError::AccesoAlDisco, u"otro programa lo tiene abierto"_s};
    return {};
}

QString MotivoDelDispositivo(Intento intento, QFileDevice::FileError error) {
    switch (error) {
    case QFileDevice::ResourceError:
        return intento == Intento::Leer ? u"hay demasiados archivos abiertos"_s : u"el disco está lleno"_s;
    case QFileDevice::ReadError:
    case QFileDevice::WriteError:
    case QFileDevice::FatalError: return u"el disco falló"_s;
    default: return {};
    }
}

Error ErrorDe(Intento intento, const QString& ruta, const Causa& causa, const QString& detalle) {
    const QString que = causa.numero == NumeroError::ArchivoNoEncontrado ? u"No se encuentra el archivo '%1'"_s
                        : intento == Intento::Leer                       ? u"No se puede leer el archivo '%1'"_s
                                                                         : u"No se puede escribir el archivo '%1'"_s;
    const QString porque = causa.motivo.isEmpty() ? u"."_s : u": "_s + causa.motivo + u'.';
    return {causa.numero, que.arg(ruta) + porque, detalle};
}

/// A name that is empty names no file, whatever folder is the current one.
Causa CausaEn(Intento intento, const QString& ruta) {
    if (ruta.isEmpty())
        return {intento == Intento::Leer ? NumeroError::ArchivoNoEncontrado : NumeroError::AccesoAlDisco, {}};
    return DelArchivo(intento, QFileInfo(QFileInfo(ruta).absoluteFilePath()));
}

} // namespace

Error FallaDeArchivo(Intento intento, const QString& ruta) {
    return ErrorDe(intento, ruta, CausaEn(intento, ruta), {});
}

Error FallaDeArchivo(Intento intento, const QString& ruta, const QFileDevice& archivo) {
    Causa causa = CausaEn(intento, ruta);
    if (causa.motivo.isEmpty() && causa.numero == NumeroError::AccesoAlDisco)
        causa.motivo = MotivoDelDispositivo(intento, archivo.error());
    return ErrorDe(intento, ruta, causa, archivo.errorString());
}

Error FallaDeArchivo(Intento intento, const QIODevice& dispositivo) {
    if (const auto* archivo = qobject_cast<const QFileDevice*>(&dispositivo))
        return FallaDeArchivo(intento, archivo->fileName(), *archivo);
    return {NumeroError::AccesoAlDisco,
            intento == Intento::Leer ? u"No se puede leer el archivo."_s : u"No se puede escribir el archivo."_s,
            dispositivo.errorString()};
}

Error FallaDeCarpeta(const QString& carpeta) {
    const QString motivo = DeLaCarpeta(QFileInfo(carpeta).absoluteFilePath()).motivo;
    if (motivo.isEmpty())
        return {NumeroError::AccesoAlDisco, u"No se puede escribir en la carpeta '%1'."_s.arg(carpeta)};
    return {NumeroError::AccesoAlDisco, Mayusculas(motivo.first(1)) + motivo.sliced(1) + u'.'};
}

} // namespace xa518
