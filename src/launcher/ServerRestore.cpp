#include "launcher/ServerRestore.h"

#include "data/Base.h"
#include "data/SchemaVersion.h"
#include "data/ServerControl.h"
#include "data/ServerDump.h"
#include "family/SchemaSteps.h"
#include "launcher/PreparedBase.h"

#include <QThread>
#include <QUuid>
#include <QtDebug>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A server cuts a longer name.
constexpr qsizetype kLargoDeNombre = 40;

constexpr int kIntentosDeCambio = 50;
constexpr int kEntreIntentos = 100; ///< milliseconds

QString NombreDePaso(const QString& base) {
    return base.left(kLargoDeNombre) + u"_paso_"_s + QUuid::createUuid().toString(QUuid::Id128).left(12);
}

} // namespace

BaseDePaso::BaseDePaso(const QString& conexion)
    : m_mando(std::make_unique<MandoDeServidor>(conexion, MandoDeServidor::Lugar::AlLado))
    , m_vigente(m_mando->Nombrada())
    , m_nombre(NombreDePaso(m_vigente))
    , m_conexion(ConexionConBase({.ruta = conexion}, m_nombre)) {
    try {
        m_mando->Crea(m_nombre);
    } catch (const ErrorBase& error) {
        if (!error.Es(NumeroError::BaseBloqueada))
            throw;
        throw ErrorBase(NumeroError::FallaDelMotor,
                        u"Para restaurar se crea una base nueva en el servidor, y esta cuenta no puede. Pida al"
                        " administrador que le dé permiso (ALTER ROLE ... CREATEDB)."_s,
                        error.Detalle());
    }
}

BaseDePaso::~BaseDePaso() {
    if (m_tomoElLugar)
        return;
    try {
        m_mando->Quita(m_nombre);
    } catch (const Error& error) {
        AnotaDetalle(error);
    }
}

QString BaseDePaso::Llena(const QString& archivo, const Formularios& formularios, Avance& avance) const {
    try {
        LlenaDeVolcado(archivo, m_conexion, avance);
        const std::unique_ptr<Base> base = Base::Abre(m_conexion);
        if (VersionDe(*base) == 0)
            return u"no es una base de estos programas."_s;
    } catch (const ErrorBase& error) {
        AnotaDetalle(error);
        return u"no se puede leer como copia de la base. "_s + error.Texto();
    }
    try {
        (void)PreparaBase(m_conexion, formularios);
    } catch (const ErrorBase& error) {
        AnotaDetalle(error);
        return error.Es(NumeroError::VersionAjena) ? u"es de una versión posterior de estos programas."_s
                                                   : error.Texto();
    }
    return {};
}

/// Whoever is inside keeps the server from renaming.
BaseDePaso::Cambio BaseDePaso::TomaElLugar(bool conservaLaAnterior) {
    const bool habia = m_mando->Existe(m_vigente);
    const QString apartada = m_nombre + u"_antes"_s;
    const auto renombra = [this](const QString& una, const QString& otra) {
        m_mando->Pide(u"ALTER DATABASE %1 RENAME TO %2"_s.arg(NombreSql(una), NombreSql(otra)));
    };
    m_mando->Pide(u"BEGIN"_s);
    try {
        if (habia)
            renombra(m_vigente, apartada);
        renombra(m_nombre, m_vigente);
        m_mando->Pide(u"COMMIT"_s);
    } catch (const ErrorBase& error) {
        m_mando->Pide(u"ROLLBACK"_s);
        if (!error.Detalle().startsWith("55006"_L1))
            throw;
        return Cambio::EnUso;
    }
    m_tomoElLugar = true;
    if (habia && !conservaLaAnterior)
        m_mando->Quita(apartada);
    return Cambio::Hecho;
}

BaseQuieta::BaseQuieta(std::unique_ptr<MandoDeServidor> mando) : m_mando(std::move(mando)) {}
BaseQuieta::BaseQuieta(BaseQuieta&&) noexcept = default;
BaseQuieta::~BaseQuieta() = default;

/// Its tables may be read, by a copy as well, but not written to.
std::optional<BaseQuieta> BaseQuieta::De(const QString& conexion) {
    auto mando = std::make_unique<MandoDeServidor>(conexion, MandoDeServidor::Lugar::EnLaBase);
    for (int intento = 1; mando->EstaEnUso(mando->Nombrada()); ++intento) {
        if (intento == kIntentosDeCambio)
            return std::nullopt;
        QThread::msleep(kEntreIntentos); // who has just left takes a moment to be gone
    }
    mando->Pide(u"BEGIN"_s);
    mando->Pide(u"SET LOCAL lock_timeout = '5s'"_s);
    for (const QStringList& tabla :
         mando->Pide(u"SELECT 'familia.' || relname FROM pg_class WHERE relnamespace = to_regnamespace('familia')"
                     " AND relkind = 'r'"_s))
        mando->Pide(u"LOCK TABLE %1 IN EXCLUSIVE MODE"_s.arg(tabla.constFirst()));
    return BaseQuieta(std::move(mando));
}

} // namespace xa518
