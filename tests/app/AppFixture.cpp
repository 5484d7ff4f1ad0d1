#include "app/AppFixture.h"

#include "form518/Form0518.h"

namespace xa518::prueba {

ModuloDePrueba::ModuloDePrueba() : InstalacionDePrueba({Formulario0518()}, kNumFormulario) {}

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

} // namespace xa518::prueba
