#include "app/AppFixture.h"

#include "family/Configuration.h"
#include "family/SchemaSteps.h"
#include "form518/Form0518.h"

namespace xa518::prueba {

ModuloDePrueba::ModuloDePrueba() : carpetaAnterior(QDir::currentPath()), perfil(base.Carpeta() + u"/XA000.INI"_s) {
    base->Ejecuta(u"PRAGMA user_version=%1"_s.arg(VersionDelEsquema(proceso.formularios)));
    base.Param(u"830"_s, u"01"_s, u"209912"_s);
    const QString carpeta = base.Carpeta() + u'/';
    for (const auto& [clave, valor] : {std::pair{u"SysPath"_s, carpeta},
                                       {u"DBPath"_s, carpeta},
                                       {u"DBName"_s, u"XA.DB"_s},
                                       {u"SysUser"_s, u"JEFA"_s}})
        perfil.Escribe(kSeccionOpciones, clave, valor);
    GrupoTrabajo(carpeta + kArchivoGrupo).Admite(CuentaConfigurada(perfil));
}

ModuloDePrueba::~ModuloDePrueba() {
    QDir::setCurrent(carpetaAnterior);
}

void ModuloDePrueba::AbreElProceso() {
    proceso.sysUser = u"JEFA"_s;
    proceso.baseDatos = Base::Abre(base.Ruta());
}

void ModuloDePrueba::Declarante(int tipoDoc, const QString& ruc, const QString& nombre, const QString& usuario) const {
    base->Ejecuta(u"INSERT INTO CONT VALUES (?,?,?,?,1)"_s, {tipoDoc, ruc, nombre, usuario});
}

void ModuloDePrueba::Declaracion(const QString& ruc, const QString& periodo, const QString& correl) const {
    const ClaveDeclaracion clave{.ruc = Ruc(ruc),
                                 .periodo = *Periodo::DeTabla(periodo),
                                 .formulario = kNumFormulario,
                                 .enviada = !correl.isEmpty(),
                                 .correl = correl};
    QMap<QString, QVariant> valores{{u"Doc_id_d"_s, ruc}, {u"periodo"_s, periodo}};
    if (clave.enviada)
        valores.insert(u"correl"_s, correl);
    for (const QString& tabla : kTablas)
        base.Agrega(clave.Tabla(tabla), valores);
}

std::unique_ptr<Base> ModuloDePrueba::Bloquea() const {
    auto otro = Base::Abre(base.Ruta());
    otro->Ejecuta(u"BEGIN EXCLUSIVE"_s);
    return otro;
}

} // namespace xa518::prueba
