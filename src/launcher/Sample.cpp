#include "launcher/Sample.h"

#include "launcher/CsvTable.h"
#include "launcher/PrivateFiles.h"
#include "values/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kArchivoEmpresa = u"empresa.csv"_s;

QByteArray Contenido(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede leer el archivo '%1'."_s.arg(ruta));
    return archivo.readAll();
}

QString CopiaArchivo(const QString& origen, const QString& destino) {
    const QString nombre = QFileInfo(origen).fileName();
    if (!QFile::exists(destino)) {
        CopiaPrivada(origen, destino);
        return u"%1: copiado."_s.arg(nombre);
    }
    return Contenido(destino) == Contenido(origen) ? u"%1: sin cambios."_s.arg(nombre)
                                                   : u"%1: se conserva el que había."_s.arg(nombre);
}

} // namespace

Declarante Ejemplo::Empresa() const {
    const QStringList fila = LeeArchivoCsv(m_recurso + u'/' + kArchivoEmpresa, {u"ruc"_s, u"nombre"_s}).constFirst();
    return {.ruc = Ruc(fila[0]), .nombre = fila[1], .usuario = {}};
}

QStringList Ejemplo::CopiaArchivos() const {
    QStringList lineas;
    for (const QString& nombre : QDir(m_recurso).entryList({u"*.TXT"_s}, QDir::Files, QDir::Name))
        lineas.append(CopiaArchivo(m_recurso + u'/' + nombre, QDir(m_carpeta).filePath(nombre)));
    return lineas;
}

} // namespace xa518
