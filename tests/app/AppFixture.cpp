#include "app/AppFixture.h"

#include "app/Configuration.h"
#include "data/SchemaVersion.h"

#include <QDir>

namespace xa518::prueba {

using namespace Qt::StringLiterals;

ModuloDePrueba::ModuloDePrueba() : carpetaAnterior(QDir::currentPath()), perfil(base.Carpeta() + u"/XA000.INI"_s) {
    base->Ejecuta(u"PRAGMA user_version=%1"_s.arg(kVersionEsquema));
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
    const ClaveDeclaracion clave{ruc, periodo, kNumFormulario, !correl.isEmpty(), correl};
    for (const QString& tabla : {u"CAB"_s, u"DET"_s, u"F518PCAB"_s, u"F518PDET"_s, u"F518PDETVC"_s, u"F518PDETCP"_s}) {
        const Tabla& destino = base->Describe(clave.Tabla(tabla));
        Registro fila(destino);
        for (const Columna& columna : destino.columnas) // every column of the detail's keys has to hold something
            fila.Pon(columna.nombre, columna.entera ? QVariant(6) : QVariant(u"1"_s));
        fila.Pon(u"Doc_id_d", ruc).Pon(u"periodo", periodo).Pon(u"Formulario", kNumFormulario);
        if (clave.enviada)
            fila.Pon(u"correl", correl);
        base->Agrega(fila);
    }
}

std::unique_ptr<Base> ModuloDePrueba::Bloquea() const {
    auto otro = Base::Abre(base.Ruta());
    otro->Ejecuta(u"BEGIN EXCLUSIVE"_s);
    return otro;
}

} // namespace xa518::prueba
