#include "launcher/PreparedBase.h"

#include "data/Base.h"
#include "data/SchemaVersion.h"
#include "data/ServerRoles.h"
#include "family/SchemaSteps.h"
#include "launcher/Schema.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QStringList kSoloAltas{u"BITACORA"_s};

QString Relato(const EstadoEsquema& estado) {
    switch (estado.resultado) {
    case ResultadoEsquema::Creado: return u"creada, versión %1."_s.arg(estado.version);
    case ResultadoEsquema::Vigente: return u"se conserva, versión %1."_s.arg(estado.version);
    case ResultadoEsquema::Actualizado:
        return u"actualizada a la versión %1; se conservan sus datos."_s.arg(estado.version);
    case ResultadoEsquema::MasNuevo:
    case ResultadoEsquema::Fallido: break;
    }
    return estado.motivo;
}

QString AplicaEsquema(Base& base, const Formularios& formularios) {
    const EstadoEsquema estado = Esquema(CarpetasDelEsquema(formularios)).Aplica(base);
    if (estado.resultado == ResultadoEsquema::MasNuevo)
        ExigeVersion(base, VersionDelEsquema(formularios));
    if (estado.resultado == ResultadoEsquema::Fallido)
        throw ErrorBase(estado.numero, estado.motivo);
    return u"Base de datos '%1': %2"_s.arg(base.Ruta(), Relato(estado));
}

QStringList EnLineas(const QString& titulo, const QStringList& sentencias) {
    QStringList lineas;
    if (!sentencias.isEmpty())
        lineas.append(titulo);
    for (const QString& sentencia : sentencias)
        lineas.append(u"  %1;"_s.arg(sentencia));
    return lineas;
}

QStringList RelatoDePermisos(const PermisosDados& permisos) {
    QStringList lineas = EnLineas(u"Permisos dados en el servidor:"_s, permisos.dados);
    lineas +=
        EnLineas(u"Esta cuenta no puede hacer lo que sigue. Pídale al administrador del servidor que lo ejecute en"
                 " esta base, y vuelva a instalar:"_s,
                 permisos.pendientes);
    lineas += EnLineas(u"Para cada persona, el administrador crea una cuenta en uno de los grupos:"_s,
                       {u"CREATE ROLE ana LOGIN PASSWORD '...' IN ROLE %1"_s.arg(kGrupoTrabajo),
                        u"CREATE ROLE auditor LOGIN PASSWORD '...' IN ROLE %1"_s.arg(kGrupoLectura)});
    return lineas;
}

} // namespace

BasePreparada PreparaBase(const QString& ruta, const Formularios& formularios) {
    BasePreparada preparada{.base = Base::AbreOCrea(ruta), .hecho = {}, .propia = true};
    preparada.hecho.append(AplicaEsquema(*preparada.base, formularios));
    if (!EsDeServidor(ruta))
        return preparada;
    preparada.propia = EsDuenoDeLaBase(ruta);
    if (preparada.propia)
        preparada.hecho += RelatoDePermisos(DaPermisos(ruta, kSoloAltas));
    return preparada;
}

} // namespace xa518
