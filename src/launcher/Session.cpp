#include "launcher/Session.h"

#include "data/SchemaVersion.h"
#include "family/Configuration.h"
#include "family/SchemaSteps.h"
#include "family/WorkLock.h"
#include "launcher/Installation.h"
#include "launcher/ReleaseNotes.h"
#include "platform/Clock.h"
#include "values/Progress.h"

#include <QFile>

#include <algorithm>
#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kCarpetaCopias = u"RESPALDOS"_s;

// The engine's own numbers, which no message of the modules knows.
constexpr int kBaseDanada = 11;
constexpr int kNoEsBase = 26;

constexpr std::array kFaltas = {NumeroError::ArchivoNoEncontrado, NumeroError::ArgumentoInvalido,
                                NumeroError::BaseNoExiste,        NumeroError::GrupoNoExiste,
                                NumeroError::CuentaRechazada,     NumeroError::VersionAjena};

} // namespace

Sesion::Sesion(const EntornoConsola& entorno)
    : m_entorno(entorno), m_perfil(entorno.rutaIni), m_proceso(entorno.reloj, entorno.formularios, {}) {}

bool Sesion::HayInstalacion() const {
    const QStringList claves = ClavesExigidas(m_perfil);
    return std::none_of(claves.cbegin(), claves.cend(),
                        [this](const QString& clave) { return m_perfil.Lee(kSeccionOpciones, clave).isEmpty(); });
}

QString Sesion::Carpeta() const {
    return Instalacion::CarpetaVigente(m_perfil, m_entorno.carpeta);
}

QStringList Sesion::Instala(bool conEjemplo) {
    Instalacion instalacion(Carpeta(), m_perfil, m_entorno.formularios);
    QStringList hecho = instalacion.Instala(m_entorno.usuario);
    return conEjemplo ? hecho + instalacion.InstalaEjemplo(m_entorno.reloj) : hecho;
}

QString Sesion::TomaNovedades() const {
    QFile pagina(u":/novedades.md"_s);
    const QString texto = pagina.open(QIODevice::ReadOnly) ? QString::fromUtf8(pagina.readAll()) : QString();
    return NovedadesPorVer(m_perfil, texto, QVersionNumber::fromString(QLatin1StringView(XA518_VERSION)));
}

void Sesion::Lee() {
    ExigeInstalacion(m_perfil);
    LeerIni(m_proceso, m_perfil);
}

/// Checking the account takes a good part of a second, wanted so by its hash: once for each installation is enough.
std::unique_ptr<Base> Sesion::Abre() {
    Lee();
    if (m_verificada != m_proceso.sysPath) {
        AbrirBase(m_proceso, m_perfil);
        m_verificada = m_proceso.sysPath;
        return std::move(m_proceso.baseDatos);
    }
    std::unique_ptr<Base> base = Base::Abre(m_proceso.rutaBase);
    ExigeVersion(*base, VersionDelEsquema(m_entorno.formularios));
    return base;
}

Proceso Sesion::AbreProceso() {
    std::unique_ptr<Base> base = Abre();
    return {static_cast<const Configurado&>(m_proceso), std::move(base)};
}

Respaldos Sesion::Copias() {
    Lee();
    return {m_proceso.rutaBase, m_proceso.sysPath + kCarpetaCopias, m_entorno.reloj, m_entorno.formularios};
}

Mudanza Sesion::MudanzaA(const QString& destino) {
    Lee();
    return {m_proceso.rutaBase, destino, m_proceso.rutaRPT, m_perfil, m_entorno.formularios};
}

RevisionEnvio Sesion::RevisaEnvio(const ClaveDeclaracion& clave) {
    const std::unique_ptr<Base> base = Abre();
    const Envio envio(*base, m_entorno.formularios);
    return {.veredicto = envio.Valida(clave, OtroOriginal::Admitido), .original = envio.OriginalYaEnviado(clave)};
}

ResultadoEnvio Sesion::Envia(const ClaveDeclaracion& clave, OtroOriginal otro) {
    const std::unique_ptr<Base> base = Abre();
    Envio envio(*base, m_entorno.formularios);
    if (VeredictoDeEnvio veredicto = envio.Valida(clave, otro); !veredicto)
        return {.veredicto = std::move(veredicto)};
    SinAvance sinAvance;
    (void)Copias().Haz(sinAvance);
    return envio.Envia(clave, otro, SuFirma());
}

QString TextoDeFalla(const Error& error, const QString& rutaBase) {
    AnotaDetalle(error);
    if (dynamic_cast<const TrabajoAjeno*>(&error) != nullptr || dynamic_cast<const BaseEnUso*>(&error) != nullptr)
        return error.Texto();
    if (error.Es(NumeroError::BaseBloqueada) && EsDeServidor(rutaBase))
        return error.Texto();
    if (error.Es(NumeroError::BaseBloqueada))
        return u"La base de datos está en uso por otro programa, o es de sólo lectura. Espere a que el otro programa"
               " termine y vuelva a intentarlo."_s;
    if (error.Numero() == kBaseDanada || error.Numero() == kNoEsBase)
        return u"%1 Restaure una de sus copias de respaldo."_s.arg(error.Texto());
    return u"%1 (error %2)"_s.arg(error.Texto()).arg(error.Numero());
}

bool LoArreglaInstalar(const Error& error) {
    const auto esEste = [&](NumeroError numero) { return error.Es(numero); };
    return std::any_of(kFaltas.cbegin(), kFaltas.cend(), esEste);
}

} // namespace xa518
