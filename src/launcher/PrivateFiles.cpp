#include "launcher/PrivateFiles.h"

#include "values/FileFailure.h"
#include "values/PrivateAccess.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBloque = 1 << 20;

bool Vierte(QFile& origen, QSaveFile& destino) {
    while (!origen.atEnd()) {
        const QByteArray bloque = origen.read(kBloque);
        if (bloque.isEmpty() || destino.write(bloque) != bloque.size())
            return false;
    }
    return true;
}

} // namespace

void CreaCarpetaPrivada(const QString& ruta) {
    if (!QDir().mkpath(ruta) || !HazPrivado(ruta))
        throw Error(NumeroError::AccesoAlDisco, u"No se puede preparar la carpeta '%1'."_s.arg(ruta));
}

void CopiaPrivada(const QString& origen, const QString& destino) {
    QFile entrada(origen);
    if (!entrada.open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, entrada);
    QSaveFile salida(destino);
    const bool copiado =
        salida.open(QIODevice::WriteOnly) && HazPrivado(salida) && Vierte(entrada, salida) && salida.commit();
    if (!copiado)
        throw FallaDeArchivo(Intento::Escribir, salida);
}

} // namespace xa518
