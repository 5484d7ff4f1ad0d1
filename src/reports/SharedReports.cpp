#include "reports/SharedReports.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "reports/SpoolRegistry.h"
#include "reports/SpoolReport.h"
#include "values/FileFailure.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kParte = 200'000; ///< bytes, about

/// Its lines as the tables keep them, whatever the platform ends them with; empty past the last.
QByteArray SiguienteParte(QFile& archivo) {
    QByteArray parte;
    while (parte.size() < kParte && !archivo.atEnd())
        parte += archivo.readLine();
    return parte;
}

void Abre(QFile& archivo) {
    if (!archivo.open(QIODevice::ReadOnly | QIODevice::Text))
        throw FallaDeArchivo(Intento::Leer, archivo);
}

QString SumaDelArchivo(const QString& ruta) {
    QFile archivo(ruta);
    Abre(archivo);
    QCryptographicHash suma(QCryptographicHash::Sha256);
    for (QByteArray parte = SiguienteParte(archivo); !parte.isEmpty(); parte = SiguienteParte(archivo))
        suma.addData(parte);
    return QString::fromLatin1(suma.result().toHex());
}

/// A server keeps text alone.
bool EsTexto(const QString& ruta) {
    QFile archivo(ruta);
    Abre(archivo);
    for (QByteArray parte = SiguienteParte(archivo); !parte.isEmpty(); parte = SiguienteParte(archivo)) {
        if (parte.contains('\0') || QString::fromUtf8(parte).toUtf8() != parte)
            return false;
    }
    return true;
}

} // namespace

bool TextosDeInformes::Hay() const {
    return m_base->LosPuestos() != nullptr;
}

void TextosDeInformes::Guarda(const QString& carpeta, const QString& archivo) {
    if (!Hay() || m_base->SoloLectura())
        return;
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    Inserta(carpeta, archivo);
    transaccion.Confirma();
}

bool TextosDeInformes::Agrega(const QString& carpeta, const QString& archivo) {
    const QString ruta = RutaDeInforme(carpeta, archivo);
    if (!Hay() || !QFileInfo(ruta).isFile() || !EsTexto(ruta))
        return false;
    Inserta(carpeta, archivo);
    return true;
}

void TextosDeInformes::Inserta(const QString& carpeta, const QString& archivo) {
    const QString ruta = RutaDeInforme(carpeta, archivo);
    const int hojas = PaginasDe(ruta).value_or(0);
    const QString suma = SumaDelArchivo(ruta);
    QFile entrada(ruta);
    Abre(entrada);
    int numero = 0;
    for (QByteArray parte = SiguienteParte(entrada); !parte.isEmpty(); parte = SiguienteParte(entrada))
        m_base->Ejecuta(u"INSERT INTO INFORMES VALUES (?, ?, ?, ?, ?)"_s,
                        {archivo, numero++, hojas, suma, QString::fromUtf8(parte)});
}

bool TextosDeInformes::EsIgual(const QFile& copia, const QString& archivo) const {
    QCryptographicHash suma(QCryptographicHash::Sha256);
    Registros filas = m_base->Lee(u"SELECT texto FROM INFORMES WHERE archivo = ? ORDER BY parte"_s, {archivo});
    while (filas.Siguiente())
        suma.addData(filas.Texto(0).toUtf8());
    return SumaDelArchivo(copia.fileName()) == QString::fromLatin1(suma.result().toHex());
}

QHash<QString, int> TextosDeInformes::Hojas() const {
    QHash<QString, int> hojas;
    if (!Hay())
        return hojas;
    Registros filas = m_base->Lee(u"SELECT archivo, hojas FROM INFORMES WHERE parte = 0"_s);
    while (filas.Siguiente())
        hojas.insert(filas.Texto(0).toUpper(), static_cast<int>(filas.Entero(1)));
    return hojas;
}

QString TextosDeInformes::Trae(const QString& carpeta, const QString& archivo) const {
    const QString suma = Hay() ? SumaDe(archivo) : QString();
    if (suma.isEmpty())
        return archivo;
    const QString ruta = RutaDeInforme(carpeta, archivo);
    const bool esta = QFileInfo::exists(ruta);
    if (esta && SumaDelArchivo(ruta) == suma)
        return archivo;
    QString nombre = esta ? u"S-"_s + archivo : archivo;
    QFile salida(RutaDeInforme(carpeta, nombre));
    Escribe(salida, archivo);
    return nombre;
}

void TextosDeInformes::Elimina(const QString& archivo) {
    if (Hay())
        m_base->Ejecuta(u"DELETE FROM INFORMES WHERE archivo = ?"_s, {archivo});
}

QString TextosDeInformes::SumaDe(const QString& archivo) const {
    Registros fila = m_base->Lee(u"SELECT suma FROM INFORMES WHERE archivo = ? AND parte = 0"_s, {archivo});
    return fila.Siguiente() ? fila.Texto(0) : QString();
}

void TextosDeInformes::Escribe(QFile& salida, const QString& archivo) const {
    constexpr auto kSoloDelUsuario = QFile::ReadOwner | QFile::WriteOwner;
    if (!salida.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text, kSoloDelUsuario))
        throw FallaDeArchivo(Intento::Escribir, salida);
    Registros filas = m_base->Lee(u"SELECT texto FROM INFORMES WHERE archivo = ? ORDER BY parte"_s, {archivo});
    while (filas.Siguiente()) {
        const QByteArray parte = filas.Texto(0).toUtf8();
        if (salida.write(parte) != parte.size())
            throw FallaDeArchivo(Intento::Escribir, salida);
    }
    if (!salida.flush())
        throw FallaDeArchivo(Intento::Escribir, salida);
}

} // namespace xa518
