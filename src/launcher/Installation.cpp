#include "launcher/Installation.h"

#include "data/Base.h"
#include "data/SchemaVersion.h"
#include "data/Workgroup.h"
#include "family/ChangeLog.h"
#include "family/Configuration.h"
#include "family/SchemaSteps.h"
#include "family/Startup.h"
#include "family/WorkLock.h"
#include "launcher/CatalogInstaller.h"
#include "launcher/Declarants.h"
#include "launcher/PrivateFiles.h"
#include "launcher/Sample.h"
#include "launcher/Schema.h"
#include "launcher/TextChecks.h"
#include "platform/NetworkFolder.h"
#include "values/Error.h"

#include <QDir>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kArchivoBase = u"XA000.DB"_s;
const QString kArchivoMenu = u"XA000.MNU"_s;
const QString kCarpetaEjemplo = u"EJEMPLO"_s;

/// Reports, work files, pictures; each form has a folder of its own beside them.
const QStringList kSubcarpetas = {u"RPT"_s, u"TMP"_s, u"BMP"_s};

QString ConSeparador(const QString& carpeta) {
    const QString nativa = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(carpeta).absoluteFilePath()));
    return nativa.endsWith(QDir::separator()) ? nativa : nativa + QDir::separator();
}

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

void AplicaEsquema(Base& base, const Formularios& formularios, QStringList& hecho) {
    const EstadoEsquema estado = Esquema(CarpetasDelEsquema(formularios)).Aplica(base);
    if (estado.resultado == ResultadoEsquema::MasNuevo)
        ExigeVersion(base, VersionDelEsquema(formularios));
    if (estado.resultado == ResultadoEsquema::Fallido)
        throw ErrorBase(estado.numero, estado.motivo);
    hecho.append(u"Base de datos '%1': %2"_s.arg(base.Ruta(), Relato(estado)));
}

QString InstalaCatalogo(Base& base, const Formularios& formularios) {
    const InstaladorCatalogo::Resumen resumen = InstaladorCatalogo(base).Instala(formularios);
    return u"Catálogo: %1 filas nuevas, %2 cambiadas, %3 sin cambios."_s.arg(resumen.nuevas)
        .arg(resumen.cambiadas)
        .arg(resumen.conservadas);
}

} // namespace

Instalacion::Instalacion(const QString& carpeta, ArchivoPerfil perfil, Formularios formularios)
    : m_carpeta(ConSeparador(carpeta))
    , m_perfil(std::move(perfil))
    , m_formularios(std::move(formularios))
    , m_carpetaBase(OpcionVigente(u"DBPath", m_carpeta))
    , m_nombreBase(OpcionVigente(u"DBName", kArchivoBase)) {}

QString Instalacion::CarpetaVigente(const ArchivoPerfil& perfil, const QString& porOmision) {
    const QString vigente = perfil.Lee(kSeccionOpciones, u"SysPath");
    return vigente.isEmpty() ? porOmision : vigente;
}

Veredicto Instalacion::Valida(const QString& usuario) const {
    if (Veredicto veredicto = ValidaCarpeta(m_carpeta); !veredicto)
        return veredicto;
    if (!QFileInfo::exists(m_carpetaBase + m_nombreBase) && EstaEnRed(m_carpetaBase))
        return Veredicto::Critico(
            u"La carpeta '%1' está en otra máquina: un archivo compartido por la red puede perder"
            " datos. Instale la base en una carpeta de este equipo, o en un servidor."_s.arg(m_carpetaBase));
    return ValidaUsuario(usuario);
}

QStringList Instalacion::Instala(const QString& usuario) {
    if (const Veredicto veredicto = Valida(usuario); !veredicto)
        throw Error(NumeroError::ArgumentoInvalido, veredicto.Motivo().texto);
    const TrabajoUnico trabajo(m_carpetaBase + m_nombreBase);
    CreaCarpetas();
    QStringList hecho{u"Carpeta: %1"_s.arg(m_carpeta)};
    const std::unique_ptr<Base> base = PreparaBase(hecho);
    hecho.append(InstalaCatalogo(*base, m_formularios));
    hecho.append(PreparaGrupo());
    for (const Formulario& formulario : m_formularios)
        hecho.append(InstalaAyuda(formulario));
    EscribePerfil(usuario);
    hecho.append(u"Configuración: %1"_s.arg(m_perfil.Ruta()));
    return hecho;
}

QStringList Instalacion::InstalaEjemplo(const Reloj& reloj) {
    const std::unique_ptr<Base> base = Base::Abre(m_carpetaBase + m_nombreBase);
    QStringList hecho;
    for (const Formulario& formulario : m_formularios) {
        if (!formulario.ejemplo.isEmpty())
            hecho += InstalaEjemploDe(formulario, *base, reloj);
    }
    return hecho;
}

QStringList Instalacion::InstalaEjemploDe(const Formulario& formulario, Base& base, const Reloj& reloj) const {
    const QString carpeta = m_carpeta + kCarpetaEjemplo;
    CreaCarpetaPrivada(carpeta);
    const Ejemplo ejemplo(formulario.ejemplo, carpeta);
    Declarantes declarantes(base);
    Declarante empresa = ejemplo.Empresa();
    empresa.usuario = m_perfil.Lee(kSeccionOpciones, u"SysUser");
    if (!declarantes.Busca(empresa.ruc)) {
        if (const Veredicto veredicto = declarantes.Registra(empresa, FirmaDe(empresa.usuario, reloj)); !veredicto)
            throw Error(NumeroError::ArgumentoInvalido, veredicto.Motivo().texto);
    }
    return QStringList{
               u"Ejemplo: declarante %1 %2, archivos en %3"_s.arg(empresa.ruc.Texto(), empresa.nombre, carpeta)} +
           ejemplo.CopiaArchivos();
}

void Instalacion::CreaCarpetas() const {
    CreaCarpetaPrivada(m_carpeta);
    for (const QString& subcarpeta : kSubcarpetas)
        CreaCarpetaPrivada(m_carpeta + subcarpeta);
    for (const Formulario& formulario : m_formularios)
        CreaCarpetaPrivada(m_carpeta + formulario.numero);
}

std::unique_ptr<Base> Instalacion::PreparaBase(QStringList& hecho) const {
    const QString ruta = m_carpetaBase + m_nombreBase;
    std::unique_ptr<Base> base = QFileInfo::exists(ruta) ? Base::Abre(ruta) : Base::Crea(ruta);
    AplicaEsquema(*base, m_formularios, hecho);
    return base;
}

/// A file that refuses the configured account gets it: the account has been changed in the configuration.
QString Instalacion::PreparaGrupo() const {
    const GrupoTrabajo grupo(m_carpeta + kArchivoGrupo);
    const Cuenta cuenta = CuentaConfigurada(m_perfil);
    try {
        grupo.Verifica(cuenta);
        return u"Grupo de trabajo: se conserva."_s;
    } catch (const ErrorBase& error) {
        if (!error.Es(NumeroError::GrupoNoExiste) && !error.Es(NumeroError::CuentaRechazada))
            throw;
        grupo.Admite(cuenta);
        return u"Grupo de trabajo: creado."_s;
    }
}

/// Replaced as a whole: a module that has the former file open goes on reading that one.
QString Instalacion::InstalaAyuda(const Formulario& formulario) const {
    const QString ruta = RutaAyuda(m_carpeta, formulario);
    CopiaPrivada(formulario.ayuda, ruta);
    return u"Ayuda del módulo: %1"_s.arg(ruta);
}

void Instalacion::EscribePerfil(const QString& usuario) const {
    const QString anterior = m_perfil.Lee(kSeccionOpciones, u"SysUser");
    const QList<std::pair<QString, QString>> opciones = {
        {u"SysPath"_s, m_carpeta},
        {u"SysVersion"_s, QStringLiteral(XA518_VERSION)},
        {u"DBPath"_s, m_carpetaBase},
        {u"DBName"_s, m_nombreBase},
        {u"SysMenu"_s, OpcionVigente(u"SysMenu", kArchivoMenu)},
        {u"SysUser"_s, anterior.isEmpty() ? usuario : anterior},
    };
    for (const auto& [clave, valor] : opciones)
        m_perfil.Escribe(kSeccionOpciones, clave, valor);
}

bool Instalacion::EsLaVigente() const {
    const QString vigente = m_perfil.Lee(kSeccionOpciones, u"SysPath");
    return !vigente.isEmpty() && ConSeparador(vigente) == m_carpeta;
}

/// A base that was given another place or name stays where it is.
QString Instalacion::OpcionVigente(QStringView clave, const QString& porOmision) const {
    const QString vigente = EsLaVigente() ? m_perfil.Lee(kSeccionOpciones, clave) : QString();
    return vigente.isEmpty() ? porOmision : vigente;
}

} // namespace xa518
