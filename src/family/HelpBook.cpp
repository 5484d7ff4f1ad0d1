#include "family/HelpBook.h"

#include "values/Error.h"

#include <QFile>
#include <QFileInfo>
#include <QResource>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kRaiz = u"/xa518/ayuda"_s;

QUrl Pagina(const QString& archivo) {
    return QUrl(u"qrc:"_s + kRaiz + u'/' + archivo);
}

/// A line for each context: its name, a blank, the page.
QHash<QString, QString> LeeContextos() {
    QHash<QString, QString> temas;
    QFile archivo(u':' + kRaiz + u"/contextos.txt"_s);
    if (!archivo.open(QIODevice::ReadOnly))
        return temas;
    for (const QString& linea : QString::fromUtf8(archivo.readAll()).split(u'\n')) {
        if (const qsizetype blanco = linea.indexOf(u' '); blanco > 0)
            temas.insert(linea.first(blanco), linea.sliced(blanco + 1).trimmed());
    }
    return temas;
}

QString Motivo(const QString& ruta) {
    const QString que = QFileInfo::exists(ruta) ? u"El archivo de ayuda '%1' no se puede leer."_s
                                                : u"No se encuentra el archivo de ayuda '%1'."_s;
    return que.arg(ruta) + u" Ejecute consola --instalar para reponerlo."_s;
}

} // namespace

LibroAyuda::LibroAyuda(const QString& ruta) : m_ruta(ruta) {
    if (!QResource::registerResource(ruta, kRaiz))
        throw Error(NumeroError::ArchivoNoEncontrado, Motivo(ruta));
    m_temas = LeeContextos();
}

LibroAyuda::~LibroAyuda() {
    QResource::unregisterResource(m_ruta, kRaiz);
}

QUrl LibroAyuda::Contenido() {
    return Pagina(u"indice.html"_s);
}

QUrl LibroAyuda::Tema(const QString& contexto) const {
    const auto tema = m_temas.constFind(contexto);
    return tema == m_temas.cend() ? Contenido() : Pagina(*tema);
}

} // namespace xa518
