#include "data/PostgresErrors.h"

#include "data/PostgresConnection.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#ifdef Q_OS_WIN
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netdb.h>
#endif

#include <memory>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What the messages know; the other states are told by their class alone.
struct Conocido {
    NumeroError numero;
    QString texto;
};

const QHash<QString, Conocido>& Conocidos() {
    static const QString ocupada =
        u"La base de datos está ocupada por otro programa: espere a que termine y vuelva a intentarlo."_s;
    static const QHash<QString, Conocido> conocidos = {
        {u"23505"_s, {NumeroError::ClaveDuplicada, u"La base de datos no admite uno de los datos."_s}},
        {u"42P01"_s, {NumeroError::TablaNoExiste, u"A la base de datos le falta una tabla."_s}},
        {u"3F000"_s, {NumeroError::TablaNoExiste, u"A la base de datos le falta una tabla."_s}},
        {u"42703"_s, {NumeroError::CampoNoExiste, u"A una tabla de la base de datos le falta una columna."_s}},
        {u"42501"_s,
         {NumeroError::BaseBloqueada,
          u"La cuenta del servidor no tiene permiso para hacerlo: pídalo a quien administra el servidor."_s}},
        {u"25006"_s,
         {NumeroError::BaseBloqueada,
          u"La base de datos del servidor es de sólo lectura: avise a quien lo administra."_s}},
        {u"55P03"_s, {NumeroError::BaseBloqueada, ocupada}},
        {u"40001"_s, {NumeroError::Conflicto, ocupada}},
        {u"40P01"_s, {NumeroError::Conflicto, ocupada}},
        {u"57014"_s, {NumeroError::BaseBloqueada, u"El servidor interrumpió la operación: vuelva a intentarlo."_s}},
        {u"53300"_s,
         {NumeroError::BaseBloqueada,
          u"El servidor no admite más conexiones: espere a que termine otro puesto y vuelva a intentarlo."_s}},
        {u"57P03"_s,
         {NumeroError::BaseBloqueada,
          u"El servidor está arrancando, cerrándose o recuperándose: espere un momento y vuelva a intentarlo."_s}},
        {u"53100"_s,
         {NumeroError::AccesoAlDisco,
          u"El disco del servidor está lleno: libere espacio en él y vuelva a intentarlo."_s}},
        {u"58030"_s, {NumeroError::AccesoAlDisco, u"El disco del servidor falló: avise a quien lo administra."_s}},
        {u"22003"_s, {NumeroError::Desbordamiento, Desbordamiento().Texto()}},
    };
    return conocidos;
}

QString ExplicacionDeClase(const QString& estado) {
    if (estado.startsWith("22"_L1) || estado.startsWith("23"_L1))
        return u"La base de datos no admite uno de los datos."_s;
    if (estado.startsWith("53"_L1))
        return u"Al servidor de la base de datos le faltan recursos: espere un momento y vuelva a intentarlo."_s;
    if (estado.startsWith("XX"_L1))
        return u"La base de datos del servidor está dañada: avise a quien lo administra."_s;
    return u"La base de datos no pudo hacer lo que se le pidió."_s;
}

constexpr std::chrono::seconds kEsperaDeConexion{10};

struct CierraConexion {
    void operator()(PGconn* conexion) const { PQfinish(conexion); }
};
using Conexion = std::unique_ptr<PGconn, CierraConexion>;

/// Tried anew with the server's code in its words, which the driver doesn't hand on.
struct Intento {
    Conexion conexion;
    bool seEmpezo = false; ///< something was sent, or waited for
};

Intento Intenta(const Parametros& parametros) {
    Conexion conexion(PQconnectStart(TextoDeConexion(parametros).toUtf8().constData()));
    PQsetErrorVerbosity(conexion.get(), PQERRORS_VERBOSE);
    const bool seEmpezo = PQstatus(conexion.get()) != CONNECTION_BAD;
    PostgresPollingStatusType paso = PGRES_POLLING_WRITING;
    while (PQstatus(conexion.get()) != CONNECTION_BAD && paso != PGRES_POLLING_OK && paso != PGRES_POLLING_FAILED) {
        if (!EsperaEnLinea(conexion.get(), paso == PGRES_POLLING_READING ? Espera::Lectura : Espera::Escritura,
                           kEsperaDeConexion))
            break; // as long as the driver had waited before
        paso = PQconnectPoll(conexion.get());
    }
    return {std::move(conexion), seEmpezo};
}

/// The five characters before the first colon behind the severity: "FATAL:  28P01: ...".
QString EstadoEn(const QString& motor) {
    for (const QString& palabra : motor.split(u' ', Qt::SkipEmptyParts)) {
        const bool esEstado =
            palabra.size() == 6 && palabra.endsWith(u':') && (palabra.front().isDigit() || palabra.startsWith("XX"_L1));
        if (esEstado)
            return palabra.chopped(1);
    }
    return {};
}

bool EsDeSocket(const QString& equipo) {
    return equipo.isEmpty() || equipo.startsWith(u'/') || equipo.startsWith(u'@');
}

bool SeConoce(const QString& equipo) {
    addrinfo* direcciones = nullptr;
    const bool conocido = getaddrinfo(equipo.toUtf8().constData(), nullptr, nullptr, &direcciones) == 0;
    if (direcciones != nullptr)
        freeaddrinfo(direcciones);
    return conocido;
}

PGPing Eco(const Parametros& parametros) {
    return PQping(TextoDeConexion(parametros).toUtf8().constData());
}

/// Whether something that speaks as a server does answers there in that mode, whoever has signed its certificate.
bool Responde(Parametros parametros, const QString& modo) {
    parametros[u"sslmode"_s] = modo;
    parametros[u"sslrootcert"_s] = QDir::rootPath() + u"no/hay"_s;
    const PGPing eco = Eco(parametros);
    return eco == PQPING_OK || eco == PQPING_REJECT;
}

/// An option as it counts, from wherever libpq took it.
QString OpcionDe(const Conexion& conexion, QStringView clave) {
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> opciones(PQconninfo(conexion.get()),
                                                                                PQconninfoFree);
    for (const PQconninfoOption* opcion = opciones.get(); opcion != nullptr && opcion->keyword != nullptr; ++opcion) {
        if (QLatin1StringView(opcion->keyword) == clave)
            return QString::fromUtf8(opcion->val);
    }
    return {};
}

/// Where libpq looks for who has signed the server's certificate.
QString CertificadoRaiz(const Conexion& conexion) {
    QString pedido = OpcionDe(conexion, u"sslrootcert");
    if (!pedido.isEmpty())
        return pedido;
#ifdef Q_OS_WIN
    return qEnvironmentVariable("APPDATA") + u"\\postgresql\\root.crt"_s;
#else
    return QDir::homePath() + u"/.postgresql/root.crt"_s;
#endif
}

ErrorDeServidor SinCifrado(const Conexion& conexion, const Parametros& parametros, const QString& motor) {
    const QString equipo = QString::fromUtf8(PQhost(conexion.get()));
    if (!Responde(parametros, u"require"_s))
        return {
            FallaDeServidor::SinCifrado,
            u"El servidor '%1' no ofrece la conexión cifrada que pide sslmode=%2: actívela en el servidor (ssl = on)."_s
                .arg(equipo, OpcionDe(conexion, u"sslmode")),
            motor};
    const QString raiz = CertificadoRaiz(conexion);
    if (!QFileInfo::exists(raiz))
        return {FallaDeServidor::SinCifrado,
                u"Falta el certificado de quien firmó el del servidor '%1': póngalo en '%2'."_s.arg(equipo, raiz),
                motor};
    return {
        FallaDeServidor::SinCifrado,
        u"El certificado del servidor '%1' no es el esperado: revise que XA000.INI lo nombre como el certificado, y que"
        " '%2' sea el certificado de quien lo firmó."_s.arg(equipo, raiz),
        motor};
}

/// A value that libpq doesn't take, or a service that it doesn't know.
ErrorDeServidor NoSeEntiende(const Parametros& parametros, const QString& motor) {
    const QString servicio = parametros.value(u"service"_s);
    if (!servicio.isEmpty() && Eco({{u"service"_s, servicio}}) == PQPING_NO_ATTEMPT)
        return {
            FallaDeServidor::Texto,
            u"No se conoce el servicio '%1': revise su nombre en XA000.INI y el archivo .pg_service.conf del usuario."_s
                .arg(servicio),
            motor};
    return {FallaDeServidor::Texto,
            u"El texto de conexión '%1' tiene un valor que no es válido: revíselo en XA000.INI."_s.arg(
                TextoDeConexion(parametros)),
            motor};
}

ErrorDeServidor SinRespuesta(const Intento& intento, const Parametros& parametros, const QString& motor) {
    const QString equipo = QString::fromUtf8(PQhost(intento.conexion.get()));
    if (!EsDeSocket(equipo) && !SeConoce(equipo))
        return {FallaDeServidor::Equipo,
                u"No se conoce ningún equipo '%1': revise el nombre del servidor en XA000.INI."_s.arg(equipo), motor};
    if (!intento.seEmpezo && Eco(parametros) == PQPING_NO_ATTEMPT)
        return NoSeEntiende(parametros, motor);
    const bool pideCifrado =
        QStringList{u"require"_s, u"verify-ca"_s, u"verify-full"_s}.contains(OpcionDe(intento.conexion, u"sslmode"));
    if (pideCifrado && !EsDeSocket(equipo) && Responde(parametros, u"prefer"_s))
        return SinCifrado(intento.conexion, parametros, motor);
    return {FallaDeServidor::Puerto,
            u"El servidor de la base de datos no responde en '%1', puerto %2: revise que esté encendido, el puerto y la"
            " red."_s.arg(equipo, QString::fromUtf8(PQport(intento.conexion.get()))),
            motor};
}

/// Whether the server takes that user when the connection is ciphered, or asks for a password at least.
bool EntraCifrado(Parametros parametros) {
    parametros[u"sslmode"_s] = u"require"_s;
    const Intento cifrado = Intenta(parametros);
    const QString motor = QString::fromUtf8(PQerrorMessage(cifrado.conexion.get()));
    return motor.isEmpty() || PQconnectionNeedsPassword(cifrado.conexion.get()) != 0 || EstadoEn(motor) == u"28P01";
}

/// A user, a password, or a way to come that the server doesn't take.
ErrorDeServidor FallaDeCuenta(const Conexion& conexion, const Parametros& parametros, const QString& motor) {
    const QString usuario = QString::fromUtf8(PQuser(conexion.get()));
    if (PQconnectionNeedsPassword(conexion.get()) != 0)
        return {
            FallaDeServidor::Cuenta,
            u"El servidor pide la contraseña del usuario '%1': póngala en el archivo .pgpass, que sólo el usuario pueda"
            " leer."_s.arg(usuario),
            motor};
    if (EstadoEn(motor) == u"28P01")
        return {FallaDeServidor::Cuenta,
                u"El servidor no admite al usuario '%1' o su contraseña: revise el usuario en XA000.INI y la contraseña"
                " en el archivo .pgpass."_s.arg(usuario),
                motor};
    if (OpcionDe(conexion, u"sslmode") == u"disable" && EntraCifrado(parametros))
        return {FallaDeServidor::SinCifrado,
                u"El servidor sólo admite al usuario '%1' por una conexión cifrada: ponga sslmode=verify-full en"
                " XA000.INI."_s.arg(usuario),
                motor};
    return {FallaDeServidor::Cuenta,
            u"El servidor no admite al usuario '%1' desde este equipo: revise el usuario en XA000.INI, o pida a quien"
            " administra el servidor que lo admita."_s.arg(usuario),
            motor};
}

} // namespace

Parametros LeeConexion(const QString& texto) {
    char* queja = nullptr;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> opciones(
        PQconninfoParse(texto.toUtf8().constData(), &queja), PQconninfoFree);
    const std::unique_ptr<char, decltype(&PQfreemem)> suQueja(queja, PQfreemem);
    if (!opciones)
        throw ErrorDeServidor(FallaDeServidor::Texto,
                              u"El texto de conexión '%1' no es el de ningún servidor."_s.arg(texto),
                              QString::fromUtf8(queja));
    Parametros parametros;
    for (const PQconninfoOption* opcion = opciones.get(); opcion->keyword != nullptr; ++opcion) {
        if (opcion->val != nullptr)
            parametros.insert(QString::fromUtf8(opcion->keyword), QString::fromUtf8(opcion->val));
    }
    if (parametros.contains(u"password"_s))
        throw ErrorDeServidor(
            FallaDeServidor::Texto,
            u"La contraseña del servidor no se escribe en XA000.INI: póngala en el archivo .pgpass del"
            " usuario."_s);
    const QStringList nombran{u"host"_s, u"hostaddr"_s, u"service"_s};
    if (std::none_of(nombran.begin(), nombran.end(), [&](const QString& clave) { return parametros.contains(clave); }))
        throw ErrorDeServidor(
            FallaDeServidor::Texto,
            u"El texto de conexión '%1' no nombra ningún servidor: le falta host o service."_s.arg(texto));
    return parametros;
}

QString TextoDeConexion(const Parametros& parametros) {
    QStringList partes;
    for (const auto& [clave, valor] : parametros.asKeyValueRange()) {
        QString escrito = valor;
        escrito.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
        partes.append(u"%1='%2'"_s.arg(clave, escrito));
    }
    return partes.join(u' ');
}

ErrorDeServidor FallaAlConectar(const Parametros& parametros) {
    const Intento intento = Intenta(parametros);
    PGconn* conexion = intento.conexion.get();
    const QString motor = QString::fromUtf8(PQerrorMessage(conexion)).trimmed();
    const QString estado = EstadoEn(motor);
    if (estado == u"3D000")
        return {FallaDeServidor::SinBase,
                u"El servidor no tiene la base de datos '%1': revise dbname en XA000.INI."_s.arg(
                    QString::fromUtf8(PQdb(conexion))),
                motor};
    if (estado.startsWith("28"_L1) || PQconnectionNeedsPassword(conexion) != 0)
        return FallaDeCuenta(intento.conexion, parametros, motor);
    if (estado.startsWith("XX"_L1)) // without room to write down what it has read
        return {
            FallaDeServidor::Puerto,
            u"El servidor falló al recibir la conexión: revise que su disco tenga espacio, y su registro de sucesos."_s,
            motor};
    if (!estado.isEmpty())
        return {FallaDeServidor::Puerto,
                u"El servidor no admite la conexión. "_s + ErrorDeEstado(estado, motor).Texto(), motor};
    return SinRespuesta(intento, parametros, motor);
}

void ExigeVersionDelServidor(int version) {
    constexpr int kPrimeraVersion = 130000;
    constexpr int kPorVersion = 10000;
    if (version < kPrimeraVersion)
        throw ErrorDeServidor(
            FallaDeServidor::Antiguo,
            u"El servidor es PostgreSQL %1, y estos programas necesitan la versión 13 o una posterior."_s.arg(
                version / kPorVersion));
}

void ExigeMismaHora(qint64 delServidor, qint64 deEsteEquipo) {
    constexpr qint64 kToleranciaMs = 120'000;
    constexpr qint64 kPorMinuto = 60'000;
    const qint64 diferencia = std::abs(deEsteEquipo - delServidor);
    if (diferencia > kToleranciaMs)
        throw ErrorDeServidor(
            FallaDeServidor::Reloj,
            u"El reloj de este equipo y el del servidor difieren en %1 minutos: corrija la hora antes de trabajar."_s
                .arg(diferencia / kPorMinuto));
}

ErrorBase ErrorDeEstado(const QString& estado, const QString& motor) {
    const auto conocido = Conocidos().constFind(estado);
    if (conocido != Conocidos().cend())
        return {conocido->numero, conocido->texto, motor};
    return {NumeroError::FallaDelMotor, ExplicacionDeClase(estado), estado + u' ' + motor};
}

ErrorBase ErrorDeResultado(const PGresult* resultado) {
    return ErrorDeEstado(QString::fromLatin1(PQresultErrorField(resultado, PG_DIAG_SQLSTATE)),
                         QString::fromUtf8(PQresultErrorMessage(resultado)).trimmed());
}

ErrorDeServidor ConexionPerdida(const QString& motor) {
    return {
        FallaDeServidor::Perdida,
        u"Se perdió la conexión con el servidor de la base de datos. Lo que estaba por grabarse no quedó grabado; lo"
        " anterior está a salvo. Repita lo último que hizo: el programa volverá a conectarse."_s,
        motor};
}

} // namespace xa518
