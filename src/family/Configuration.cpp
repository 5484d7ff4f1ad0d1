#include "family/Configuration.h"

#include "data/Catalog.h"
#include "data/CatalogLayout.h"
#include "data/SchemaVersion.h"
#include "family/Process.h"
#include "family/SchemaSteps.h"
#include "values/Text.h"

#include <QDir>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kSeccionGrupo = u"Grupo"_s;

QString Opcion(const ArchivoPerfil& perfil, QStringView clave) {
    return Recorta(perfil.Lee(kSeccionOpciones, clave)).toString();
}

QString CodigosDe(const ArchivoPerfil& perfil, QStringView clave, const char* deFabrica) {
    const QString configurados = perfil.Lee(kSeccionGrupo, clave);
    return configurados.isEmpty() ? QString::fromLatin1(deFabrica) : configurados;
}

} // namespace

ArchivoPerfil PerfilCompartido() {
    return ArchivoPerfil(ArchivoPerfil::RutaDe(kArchivoIni));
}

Cuenta CuentaConfigurada(const ArchivoPerfil& perfil) {
    return {TextoDeCodigos(CodigosDe(perfil, u"Cuenta", XA518_ACCOUNT_CODES)),
            TextoDeCodigos(CodigosDe(perfil, u"Clave", XA518_PASSWORD_CODES))};
}

QString BaseConfigurada(const ArchivoPerfil& perfil) {
    const QString nombre = Opcion(perfil, u"DBName");
    return EsDeServidor(nombre) ? nombre : Opcion(perfil, u"DBPath") + nombre;
}

void LeerIni(Proceso& proceso, const ArchivoPerfil& perfil) {
    const QChar separador = QDir::separator();
    proceso.sysPath = Opcion(perfil, u"SysPath");
    QDir::setCurrent(proceso.sysPath); // fails silently for a folder that doesn't exist
    proceso.rutaTMPBarra = proceso.sysPath + u"TMP"_s + separador;
    proceso.sysVersion = Opcion(perfil, u"SysVersion");
    proceso.rutaBase = BaseConfigurada(perfil);
    proceso.rutaMenu = proceso.sysPath + Opcion(perfil, u"SysMenu");
    // Without a separator behind them: names of logs and reports are joined directly, and the launcher reads them so.
    proceso.rutaRPT = proceso.sysPath + u"RPT"_s;
    proceso.rutaTMP = proceso.sysPath + u"TMP"_s;
    proceso.rutaBMP = proceso.sysPath + u"BMP"_s + separador;
    proceso.sysUser = Opcion(perfil, u"SysUser"); // a missing user is the empty text, not a blank
}

void AbrirBase(Proceso& proceso, const ArchivoPerfil& perfil) {
    const QString grupo = proceso.sysPath + kArchivoGrupo;
    // Before the opening, and at every start even when the opening fails: the family's programs find the file by it.
    perfil.Escribe(kSeccionOpciones, u"SystemDB", grupo);
    GrupoTrabajo(grupo).Verifica(CuentaConfigurada(perfil));
    std::unique_ptr<Base> base = Base::Abre(proceso.rutaBase);
    ExigeVersion(*base, VersionDelEsquema(proceso.formularios));
    proceso.baseDatos = std::move(base);
}

QStringList ClavesExigidas(const ArchivoPerfil& perfil) {
    if (EsDeServidor(Opcion(perfil, u"DBName")))
        return {u"SysPath"_s, u"DBName"_s};
    return {u"SysPath"_s, u"DBPath"_s, u"DBName"_s};
}

void ExigeInstalacion(const ArchivoPerfil& perfil) {
    if (!perfil.Existe())
        throw Error(NumeroError::ArchivoNoEncontrado,
                    u"No se encuentra '%1'. Ejecute primero consola --instalar."_s.arg(perfil.Ruta()));
    for (const QString& clave : ClavesExigidas(perfil)) {
        if (Opcion(perfil, clave).isEmpty())
            throw Error(NumeroError::ArgumentoInvalido,
                        u"Falta la clave %1 en '%2'. Ejecute consola --instalar."_s.arg(clave, perfil.Ruta()));
    }
}

void LeerCatalogoInicial(Proceso& proceso) {
    const QString primero = Catalogo(*proceso.baseDatos).FuncionParam(u"830"_s, u"01"_s, TramosPrimerPeriodo::kPeriodo);
    proceso.fechaPrimerIgv = Periodo::DeTabla(primero).value_or(Periodo());
}

} // namespace xa518
