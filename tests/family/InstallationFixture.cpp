#include "family/InstallationFixture.h"

#include "family/Configuration.h"
#include "family/SchemaSteps.h"

namespace xa518::prueba {

InstalacionDePrueba::InstalacionDePrueba(Formularios formularios, QString numero)
    : carpetaAnterior(QDir::currentPath())
    , proceso(reloj, std::move(formularios), std::move(numero))
    , perfil(base.Carpeta() + u"/XA000.INI"_s) {
    base->PonVersionDelEsquema(VersionDelEsquema(proceso.formularios));
    base.Param(u"830"_s, u"01"_s, u"209912"_s);
    const QString carpeta = base.Carpeta() + u'/';
    for (const auto& [clave, valor] : {std::pair{u"SysPath"_s, carpeta},
                                       {u"DBPath"_s, base.DBPath()},
                                       {u"DBName"_s, base.DBName()},
                                       {u"SysUser"_s, u"JEFA"_s}})
        perfil.Escribe(kSeccionOpciones, clave, valor);
    GrupoTrabajo(carpeta + kArchivoGrupo).Admite(CuentaConfigurada(perfil));
}

InstalacionDePrueba::~InstalacionDePrueba() {
    QDir::setCurrent(carpetaAnterior);
}

std::unique_ptr<Base> InstalacionDePrueba::Bloquea() const {
    auto otro = Base::Abre(base.Ruta());
    otro->Ejecuta(u"BEGIN EXCLUSIVE"_s);
    return otro;
}

} // namespace xa518::prueba
