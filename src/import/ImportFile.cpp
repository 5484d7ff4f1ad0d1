#include "import/ImportFile.h"

#include "family/DeclarationKey.h"
#include "import/ImportFormat.h"
#include "values/FileFailure.h"
#include "values/ObjetoUtil.h"

#include <QCryptographicHash>
#include <QDir>

namespace xa518 {

using namespace Qt::StringLiterals;

QString NombreDeArchivo(const ClaveDeclaracion& clave, const FormatoImportacion& formato) {
    return clave.formulario + clave.ruc.Texto() + clave.periodo.Texto() + formato.finDeNombre + ".TXT"_L1;
}

bool SeLlama(const QString& ruta, const QString& nombre) {
    return QFileInfo(ruta).fileName().compare(nombre, Qt::CaseInsensitive) == 0;
}

QString BuscaArchivo(const QString& ruta, const QString& nombre) {
    if (ruta.isEmpty())
        throw Error(NumeroError::ArgumentoInvalido, u"Falta la carpeta del archivo a importar."_s);
    if (SeLlama(ruta, nombre) && ObjetoUtil::ExisteArchivo(ruta))
        return ruta;
    const QDir directorio(ruta);
    if (ObjetoUtil::ExisteArchivo(directorio.filePath(nombre)))
        return directorio.filePath(nombre);
    const QStringList iguales = directorio.entryList({nombre}, QDir::Files);
    if (iguales.isEmpty())
        throw FallaDeArchivo(Intento::Leer, directorio.absoluteFilePath(nombre));
    return directorio.filePath(iguales.front());
}

QString HuellaDeArchivo(const QString& ruta) {
    QFile archivo(ruta);
    QCryptographicHash huella(QCryptographicHash::Sha256);
    if (!archivo.open(QIODevice::ReadOnly) || !huella.addData(&archivo))
        throw FallaDeArchivo(Intento::Leer, archivo);
    return QString::fromLatin1(huella.result().toHex());
}

} // namespace xa518
