#include "launcher/Installation.h"

#include "data/Base.h"
#include "data/Workgroup.h"
#include "family/ChangeLog.h"
#include "family/Configuration.h"
#include "family/Startup.h"
#include "family/WorkLock.h"
#include "launcher/CatalogInstaller.h"
#include "launcher/Declarants.h"
#include "launcher/PreparedBase.h"
#include "launcher/PrivateFiles.h"
#include "launcher/Sample.h"
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

QString InstalaCatalogo(Base& base, const Formularios& formularios) {
    const InstaladorCatalogo::Resumen resumen = InstaladorCatalogo(base).Instala(formularios);
    return u"Catálogo: %1 filas nuevas, %2 cambiadas, %3 sin cambios."_s.arg(resumen.nuevas)
        .arg(resumen.cambiadas)
        .arg(resumen.conservadas);
}

} // namespace

Instalacion::Instalacion(const QString& carpeta, ArchivoPerfil perfil, Formularios formularios, const QString& servidor)
    : m_carpeta(ConSeparador(carpeta))
    , m_perfil(std::move(perfil))
    , m_formularios(std::move(formularios))
    , m_nombreBase(servidor.isEmpty() ? OpcionVigente(u"DBName", kArchivoBase) : servidor)
    , m_carpetaBase(EsDeServidor(m_nombreBase) ? QString() : OpcionVigente(u"DBPath", m_carpeta)) {}

QString Instalacion::CarpetaVigente(const ArchivoPerfil& perfil, const QString& porOmision) {
    const QString vigente = perfil.Lee(kSeccionOpciones, u"SysPath");
    return vigente.isEmpty() ? porOmision : vigente;
}

Veredicto Instalacion::Valida(const QString& usuario) const {
    if (Veredicto veredicto = ValidaCarpeta(m_carpeta); !veredicto)
        return veredicto;
    if (Veredicto veredicto = ValidaBase(); !veredicto)
        return veredicto;
    return ValidaUsuario(usuario);
}

/// What an installation has in a base goes to another one by a move, not by installing there.
Veredicto Instalacion::ValidaBase() const {
    const QString vigente = EsLaVigente() ? BaseConfigurada(m_perfil) : QString();
    const bool esOtra = !vigente.isEmpty() && vigente != m_carpetaBase + m_nombreBase;
    if (esOtra && (EsDeServidor(vigente) || QFileInfo::exists(vigente)))
        return Veredicto::Critico(u"La instalación ya tiene su base en '%1'. Para llevarla al servidor ejecute"
                                  " consola --mudar."_s.arg(vigente));
    if (EsDeServidor(m_nombreBase))
        return ValidaConexion(m_nombreBase);
    if (!QFileInfo::exists(m_carpetaBase + m_nombreBase) && EstaEnRed(m_carpetaBase))
        return Veredicto::Critico(
            u"La carpeta '%1' está en otra máquina: un archivo compartido por la red puede perder"
            " datos. Instale la base en una carpeta de este equipo, o en un servidor."_s.arg(m_carpetaBase));
    return Veredicto::Bien();
}

QStringList Instalacion::Instala(const QString& usuario) {
    if (const Veredicto veredicto = Valida(usuario); !veredicto)
        throw Error(NumeroError::ArgumentoInvalido, veredicto.Motivo().texto);
    const TrabajoUnico trabajo(m_carpetaBase + m_nombreBase);
    CreaCarpetas();
    QStringList hecho{u"Carpeta: %1"_s.arg(m_carpeta)};
    const BasePreparada preparada = PreparaBase(m_carpetaBase + m_nombreBase, m_formularios);
    hecho += preparada.hecho;
    hecho.append(preparada.propia ? InstalaCatalogo(*preparada.base, m_formularios)
                                  : u"Catálogo: se conserva; esta cuenta del servidor no lo cambia."_s);
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
