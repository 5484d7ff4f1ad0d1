#include "platform/ProfileFile.h"

#include "values/FileFailure.h"
#include "values/PrivateAccess.h"
#include "values/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace xa518 {

namespace {

QByteArray LeeBytes(const QString& ruta) {
    QFile archivo(ruta);
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
}

bool EsMismoNombre(QStringView uno, QStringView otro) {
    return uno.trimmed().compare(otro.trimmed(), Qt::CaseInsensitive) == 0;
}

/// One line of the file by its place in the bytes; `fin` lies behind its line end.
struct Linea {
    qsizetype inicio;
    qsizetype fin;
    QString texto;
};

QList<Linea> SeparaLineas(const QByteArray& bytes) {
    QList<Linea> lineas;
    for (qsizetype inicio = 0; inicio < bytes.size();) {
        const qsizetype salto = bytes.indexOf('\n', inicio);
        const qsizetype fin = salto < 0 ? bytes.size() : salto + 1;
        lineas.append({inicio, fin, DecodificaCualquiera(bytes.sliced(inicio, fin - inicio)).trimmed()});
        inicio = fin;
    }
    return lineas;
}

bool AbreSeccion(const Linea& linea) {
    return linea.texto.startsWith(u'[');
}

bool EsSeccion(const Linea& linea, QStringView seccion) {
    const QStringView texto = linea.texto;
    return AbreSeccion(linea) && texto.endsWith(u']') && EsMismoNombre(texto.sliced(1).chopped(1), seccion);
}

bool EsClave(const Linea& linea, QStringView clave) {
    const qsizetype igual = linea.texto.indexOf(u'=');
    return igual > 0 && EsMismoNombre(QStringView(linea.texto).first(igual), clave);
}

/// Where a key stands: the section's first line and the key's line, -1 when missing, and where a new key would go.
struct Lugar {
    qsizetype seccion = -1;
    qsizetype clave = -1;
    qsizetype finSeccion = -1;
};

Lugar Busca(QStringView seccion, const QList<Linea>& lineas, QStringView clave) {
    Lugar lugar;
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        if (lugar.seccion < 0) {
            if (EsSeccion(lineas[i], seccion))
                lugar.seccion = lugar.finSeccion = i;
            continue;
        }
        if (AbreSeccion(lineas[i]))
            break;
        if (!lineas[i].texto.isEmpty())
            lugar.finSeccion = i;
        if (lugar.clave < 0 && EsClave(lineas[i], clave))
            lugar.clave = i;
    }
    return lugar;
}

QString SinComillas(QStringView valor) {
    const bool entreComillas =
        valor.size() >= 2 && valor.front() == valor.back() && (valor[0] == u'"' || valor[0] == u'\'');
    return (entreComillas ? valor.sliced(1, valor.size() - 2) : valor).toString();
}

QByteArray FinDeLinea(const QByteArray& bytes) {
    return bytes.contains("\r\n") ? QByteArrayLiteral("\r\n") : QByteArrayLiteral("\n");
}

QByteArray ConValor(const QByteArray& bytes, QStringView seccion, QStringView clave, QStringView valor) {
    const QList<Linea> lineas = SeparaLineas(bytes);
    const Lugar lugar = Busca(seccion, lineas, clave);
    const QByteArray fin = FinDeLinea(bytes);
    const QByteArray entrada = clave.toUtf8() + '=' + valor.toUtf8() + fin;
    if (lugar.clave >= 0) {
        const Linea& vieja = lineas[lugar.clave];
        return bytes.first(vieja.inicio) + entrada + bytes.sliced(vieja.fin);
    }
    const qsizetype corte = lugar.seccion < 0 ? bytes.size() : lineas[lugar.finSeccion].fin;
    QByteArray antes = bytes.first(corte);
    if (!antes.isEmpty() && !antes.endsWith('\n'))
        antes += fin;
    const QByteArray cabecera = lugar.seccion < 0 ? '[' + seccion.toUtf8() + ']' + fin : QByteArray();
    return antes + cabecera + entrada + bytes.sliced(corte);
}

} // namespace

ArchivoPerfil::ArchivoPerfil(QString ruta) : m_ruta(std::move(ruta)) {}

QString ArchivoPerfil::RutaDe(const QString& nombre) {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)).filePath(nombre);
}

bool ArchivoPerfil::Existe() const {
    return QFileInfo::exists(m_ruta);
}

QString ArchivoPerfil::Lee(QStringView seccion, QStringView clave) const {
    const QList<Linea> lineas = SeparaLineas(LeeBytes(m_ruta));
    const Lugar lugar = Busca(seccion, lineas, clave);
    if (lugar.clave < 0)
        return {};
    const QStringView linea = lineas[lugar.clave].texto;
    return SinComillas(linea.sliced(linea.indexOf(u'=') + 1).trimmed());
}

void ArchivoPerfil::Escribe(QStringView seccion, QStringView clave, QStringView valor) const {
    const QByteArray viejo = LeeBytes(m_ruta);
    if (viejo.isEmpty() && QFileInfo(m_ruta).size() > 0) // written anew it would lose its other keys
        throw FallaDeArchivo(Intento::Leer, m_ruta);
    const QByteArray nuevo = ConValor(viejo, seccion, clave, valor);
    if (nuevo == viejo)
        return; // a start that changes nothing goes well on a full or a read-only disk
    QDir().mkpath(QFileInfo(m_ruta).path());
    QSaveFile archivo(m_ruta);
    const bool escrito = archivo.open(QIODevice::WriteOnly) && HazPrivado(archivo) &&
                         archivo.write(nuevo) == nuevo.size() && archivo.commit();
    if (!escrito)
        throw FallaDeArchivo(Intento::Escribir, archivo);
}

} // namespace xa518
