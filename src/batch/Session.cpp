#include "batch/Session.h"

#include "app/Configuration.h"

#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Without the file there is nothing to find the base by, and writing a new one would only hide that.
void ExigePerfil(const ArchivoPerfil& perfil) {
    if (!QFileInfo::exists(perfil.Ruta()))
        throw Error(NumeroError::ArchivoNoEncontrado,
                    u"No se encuentra %1. Instale primero con: consola --instalar"_s.arg(perfil.Ruta()));
    for (const QStringView clave : {u"SysPath", u"DBPath", u"DBName"}) {
        if (perfil.Lee(kSeccionOpciones, clave).isEmpty())
            throw Error(NumeroError::ArgumentoInvalido,
                        u"Falta la clave %1 en %2"_s.arg(clave.toString(), perfil.Ruta()));
    }
}

} // namespace

Rechazo RechazaCon(const QString& texto) {
    return {{Icono::Critico, texto, {}}};
}

std::unique_ptr<Proceso> AbreSesion(const ArchivoPerfil& perfil, const Reloj& reloj) {
    ExigePerfil(perfil);
    auto proceso = std::make_unique<Proceso>(reloj);
    LeerIni(*proceso, perfil);
    AbrirBase(*proceso, perfil);
    LeerCatalogoInicial(*proceso);
    return proceso;
}

} // namespace xa518
