#include "data/PostgresEngine.h"

#include "data/PostgresConnection.h"
#include "data/PostgresDialect.h"
#include "data/RecordChecksum.h"
#include "data/SqlTokens.h"
#include "values/Text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QSqlDriver>
#include <QSqlField>
#include <QSqlQuery>
#include <QUuid>

#include <thread>
#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasPorTurno = 2000;
constexpr int kFilasPorCopia = 10'000; // each turn of a copy is a way there and back three times
constexpr std::chrono::milliseconds kCadaMirada{50};

/// The lock that stands for the turn of those who give numbers.
constexpr const char* kTomaTurno = "SELECT pg_catalog.pg_advisory_xact_lock(22593, 1)";

/// How long the server may take to notice that a connection is gone when it is asked to look.
constexpr int kMiradasAlAnterior = 50;
constexpr std::chrono::milliseconds kEntreMiradas{100};

/// The server notices within a minute that a machine is gone, and lets its locks go.
const QString& AtencionDelServidor() {
    static const QString opciones = u"-c tcp_keepalives_idle=30 -c tcp_keepalives_interval=10 -c tcp_keepalives_count=3"
                                    " -c client_min_messages=warning"_s;
    return opciones;
}

QString PrimeraPalabra(const QString& sql) {
    const QStringList fichas = Fichas(sql);
    const qsizetype primera = SiguienteFicha(fichas, -1, 1);
    return primera < fichas.size() ? fichas[primera].toUpper() : QString();
}

QByteArrayView Valor(const PGresult* filas, int fila, int columna) {
    return {PQgetvalue(filas, fila, columna), PQgetlength(filas, fila, columna)};
}

QString LeeSql(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorBase(NumeroError::ArchivoNoEncontrado, u"No se puede leer '%1'."_s.arg(ruta));
    return QString::fromUtf8(archivo.readAll());
}

/// Puts a row that was read, and behind it the checksum of what it holds.
void PonConChecksum(EntradaDeFilas& entrada, int primeros, const PGresult* filas, int fila) {
    Checksum checksum;
    for (int columna = 0; columna < PQnfields(filas); ++columna) {
        const QString texto = QString::fromUtf8(Valor(filas, fila, columna));
        if (columna < primeros)
            checksum.Numero(texto);
        else
            checksum.Texto(texto);
        if (PQgetisnull(filas, fila, columna) != 0)
            entrada.PonNulo();
        else
            entrada.Pon(Valor(filas, fila, columna));
    }
    entrada.Pon(checksum.Digitos().toUtf8());
    entrada.CierraFila();
}

} // namespace

MotorPostgres::MotorPostgres() : m_nombre(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

MotorPostgres::~MotorPostgres() {
    QSqlDatabase::removeDatabase(m_nombre);
}

void MotorPostgres::Abre(const LugarDeBase& lugar, ModoApertura modo) {
    if (!QSqlDatabase::isDriverAvailable(u"QPSQL"_s))
        throw ErrorBase(NumeroError::MotorAjeno,
                        u"Para trabajar con un servidor falta instalar el paquete libqt6sql6-psql."_s);
    m_lugar = lugar;
    m_parametros = LeeConexion(lugar.ruta);
    Parametros parametros = m_parametros;
    parametros.insert(u"client_encoding"_s, u"UTF8"_s);
    parametros.insert(u"options"_s, (AtencionDelServidor() + u' ' + parametros.value(u"options"_s)).trimmed());
    for (const auto& [clave, valor] : {std::pair{u"connect_timeout"_s, u"10"_s},
                                       {u"tcp_user_timeout"_s, u"30000"_s},
                                       {u"keepalives_idle"_s, u"30"_s}, // an answer that is waited for on a dead wire
                                       {u"keepalives_interval"_s, u"10"_s},
                                       {u"keepalives_count"_s, u"3"_s},
                                       {u"application_name"_s, QCoreApplication::applicationName()}}) {
        if (!parametros.contains(clave))
            parametros.insert(clave, valor);
    }
    QSqlDatabase conexion = QSqlDatabase::addDatabase(u"QPSQL"_s, m_nombre);
    conexion.setNumericalPrecisionPolicy(QSql::HighPrecision);
    conexion.setConnectOptions(TextoDeConexion(parametros));
    Conecta();
    ExigeServidor();
    PreparaContenido(modo);
    Viste();
}

void MotorPostgres::Conecta() {
    if (!Conexion().open())
        throw FallaAlConectar(m_parametros);
}

int MotorPostgres::Reconecta() {
    const SesionDelServidor anterior = m_sesion;
    Conecta();
    AcabaCon(anterior);
    Viste();
    return anterior.pid;
}

/// What the lost connection had sent may still be under way, a COMMIT too: only behind its end the tables tell what
/// came of it, and its locks are free.
void MotorPostgres::AcabaCon(const SesionDelServidor& anterior) const {
    const QString cual = u"FROM pg_catalog.pg_stat_activity WHERE pid = %1 AND backend_start::text"
                         " OPERATOR(pg_catalog.=) '%2'"_s.arg(anterior.pid)
                             .arg(anterior.desde);
    Pide(Manija(), u"SELECT pg_catalog.pg_terminate_backend(pid) "_s + cual);
    for (int i = 0; i < kMiradasAlAnterior; ++i) {
        const ResultadoPg fila = Pide(Manija(), u"SELECT count(*) "_s + cual);
        if (Valor(fila.get(), 0, 0) == "0")
            return;
        std::this_thread::sleep_for(kEntreMiradas);
    }
    Conexion().close();
    throw ErrorBase(NumeroError::BaseBloqueada,
                    u"El servidor todavía no termina lo que se le había pedido cuando se perdió la conexión: espere un"
                    " momento y vuelva a intentarlo."_s);
}

void MotorPostgres::ExigeServidor() const {
    const int version = PQserverVersion(Manija());
    if (EstaPerdida() || version == 0) // a server that ended right after it was reached tells none
        throw ConexionPerdida(QString::fromUtf8(PQerrorMessage(Manija())).trimmed());
    ExigeVersionDelServidor(version);
    const ResultadoPg filas = Pide(Manija(), u"SELECT pg_catalog.current_setting('server_encoding')"_s);
    if (Valor(filas.get(), 0, 0) != "UTF8")
        throw ErrorDeServidor(
            FallaDeServidor::BaseAjena,
            u"La base de datos del servidor no guarda los textos en UTF-8: hay que crearla de nuevo."_s);
    ExigeReloj();
}

void MotorPostgres::ExigeReloj() const {
    const ResultadoPg fila =
        Pide(Manija(), u"SELECT (extract(epoch FROM pg_catalog.clock_timestamp()) * 1000)::bigint"_s);
    ExigeMismaHora(Valor(fila.get(), 0, 0).toByteArray().toLongLong(), QDateTime::currentMSecsSinceEpoch());
}

/// A database of these programs has their two schemas; a new one has nothing.
void MotorPostgres::PreparaContenido(ModoApertura modo) {
    const ResultadoPg fila = Pide(
        Manija(), u"SELECT pg_catalog.to_regnamespace('familia') IS NOT NULL, EXISTS(SELECT 1 FROM"
                  " pg_catalog.pg_class AS c JOIN pg_catalog.pg_namespace AS n ON n.oid = c.relnamespace"
                  " WHERE n.nspname <> 'information_schema' AND n.nspname NOT LIKE 'pg\\_%' AND NOT EXISTS(SELECT 1"
                  " FROM pg_catalog.pg_depend AS d WHERE d.objid = c.oid AND d.deptype = 'e')),"
                  " pg_catalog.current_setting('transaction_read_only') = 'on' OR NOT coalesce("
                  " pg_catalog.has_table_privilege(pg_catalog.to_regclass('familia.cab'), 'INSERT'), true)"_s);
    m_soloLectura = Valor(fila.get(), 0, 2) == "t";
    const bool esNuestra = Valor(fila.get(), 0, 0) == "t";
    const bool estaOcupada = Valor(fila.get(), 0, 1) == "t";
    if (!esNuestra && estaOcupada)
        throw ErrorDeServidor(
            FallaDeServidor::BaseAjena,
            u"La base de datos del servidor guarda otras cosas: estos programas necesitan una para ellos solos."_s);
    if (!esNuestra && modo == ModoApertura::Existente)
        throw ErrorDeServidor(FallaDeServidor::SinBase,
                              u"La base de datos del servidor está vacía. Ejecute consola --instalar."_s);
    if (esNuestra && modo == ModoApertura::Nueva)
        throw ErrorBase(NumeroError::AccesoAlDisco, u"La base de datos del servidor ya está instalada."_s);
    if (modo != ModoApertura::Existente && (!esNuestra || EsSuDueno()))
        Instala();
}

/// Whoever only works in it finds it made.
bool MotorPostgres::EsSuDueno() const {
    const ResultadoPg fila = Pide(Manija(), u"SELECT pg_catalog.pg_has_role(nspowner, 'USAGE') FROM"
                                            " pg_catalog.pg_namespace WHERE nspname = 'familia'"_s);
    return Valor(fila.get(), 0, 0) == "t";
}

/// Two installers may run at once.
void MotorPostgres::Instala() const {
    Pide(Manija(), u"BEGIN"_s);
    try {
        Pide(Manija(), QString::fromLatin1(kTomaTurno));
        Pide(Manija(), u"SET LOCAL client_min_messages = warning"_s);
        Pide(Manija(), LeeSql(u":/postgres/dialecto.sql"_s));
        Pide(Manija(), LeeSql(u":/postgres/puestos.sql"_s));
        Pide(Manija(), u"COMMIT"_s);
    } catch (const ErrorBase&) {
        PQclear(PQexec(Manija(), "ROLLBACK"));
        throw;
    }
}

/// Everything that a connection needs, when it is opened and when it is opened again. No query here runs long enough to
/// be worth its compilation, which the server begins for tables that it doesn't know the size of yet.
void MotorPostgres::Viste() {
    Pide(Manija(), u"SET default_transaction_isolation = 'read committed'; SET lock_timeout = '5s'; SET jit = off"_s);
    PonCamino();
    const ResultadoPg fila = Pide(
        Manija(), u"SELECT backend_start::text FROM pg_catalog.pg_stat_get_activity(pg_catalog.pg_backend_pid())"_s);
    m_sesion = {.pid = PQbackendPID(Manija()), .desde = QString::fromUtf8(Valor(fila.get(), 0, 0))};
}

/// A seat that was cleared doesn't fall back on the tables behind it.
void MotorPostgres::PonCamino() const {
    const QString trabajo = m_lugar.trabajo ? m_lugar.trabajo->Nombre() + u", "_s : QString();
    Pide(Manija(), u"SET search_path = %1familia, dialecto, pg_catalog, pg_temp"_s.arg(trabajo));
    if (!m_lugar.trabajo)
        return;
    const ResultadoPg fila =
        Pide(Manija(), u"SELECT pg_catalog.to_regnamespace('%1') IS NOT NULL"_s.arg(m_lugar.trabajo->Nombre()));
    if (Valor(fila.get(), 0, 0) == "t")
        return;
    Conexion().close();
    throw ErrorBase(NumeroError::BaseBloqueada,
                    u"Este puesto de trabajo fue quitado del servidor. Cierre el programa y vuelva a abrirlo."_s);
}

void MotorPostgres::PonTrabajo(const EsquemaDeTrabajo& trabajo) {
    m_lugar.trabajo = trabajo;
    PonCamino();
}

QSqlDatabase MotorPostgres::Conexion() const {
    return QSqlDatabase::database(m_nombre, false);
}

PGconn* MotorPostgres::Manija() const {
    const QVariant manija = Conexion().driver()->handle();
    return manija.isValid() ? *static_cast<PGconn* const*>(manija.constData()) : nullptr;
}

QString MotorPostgres::Traduce(const QString& sql) const {
    return TraduceAPostgres(sql);
}

std::exception_ptr MotorPostgres::FallaDe(const QSqlError& error) const {
    const QString motor = error.databaseText().trimmed();
    if (EstaPerdida())
        return std::make_exception_ptr(ConexionPerdida(motor));
    return std::make_exception_ptr(ErrorDeEstado(error.nativeErrorCode(), motor));
}

void MotorPostgres::PonVigia(Vigia vigia) {
    m_vigia = std::move(vigia);
    m_filas = 0;
}

/// Read committed, and the lock as a statement of its own: what is read behind it sees what its last holder wrote.
QStringList MotorPostgres::SqlComienza(Turno turno) const {
    QStringList comienzo{u"BEGIN"_s};
    if (turno == Turno::DeTodos)
        comienzo.append(QString::fromLatin1(kTomaTurno));
    return comienzo;
}

/// In how many transactions the others wrote.
QString MotorPostgres::SqlVersion() const {
    return u"SELECT CAST(coalesce(pg_catalog.sum(veces), 0) AS bigint) FROM cambios WHERE escritor <>"
           " pg_backend_pid()"_s;
}

QString MotorPostgres::SqlVersionDelEsquema() const {
    return u"SELECT version FROM version_esquema"_s;
}

QString MotorPostgres::SqlPonVersionDelEsquema(int version) const {
    return u"UPDATE version_esquema SET version = %1"_s.arg(version);
}

QList<size_t> MotorPostgres::AgregaFilas(const FilasNuevas& filas) {
    if (PQtransactionStatus(Manija()) != PQTRANS_INTRANS)
        throw ErrorBase(NumeroError::AccesoAlDisco, u"La base de datos no pudo hacer lo que se le pidió."_s);
    QList<size_t> rechazadas = AltaPostgres(Manija(), filas);
    m_filas += static_cast<qint64>(filas.Cuantas());
    return rechazadas;
}

/// The rows come here and go back: the reckoning of a checksum is a rule of these programs, and so is when it
/// overflows.
void MotorPostgres::CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) {
    const Tabla& tabla = base.Describe(copia.tabla);
    const CamposDeCopia campos(tabla, copia);
    QStringList columnas;
    for (const Columna& columna : tabla.columnas)
        columnas.append(columna.nombre);
    const QString sql = u"SELECT %1 %2"_s.arg(campos.expresiones.join(u", "_s), copia.desde);
    const QString lectura = u"copia_%1"_s.arg(++m_lecturas);
    Pide(Manija(),
         u"DECLARE %1 NO SCROLL CURSOR FOR %2"_s.arg(lectura, ConLiterales(sql, campos.valores + copia.valores)));
    int leidas = kFilasPorCopia;
    while (leidas == kFilasPorCopia) {
        const ResultadoPg filas = Pide(Manija(), u"FETCH %1 FROM %2"_s.arg(kFilasPorCopia).arg(lectura));
        leidas = PQntuples(filas.get());
        EntradaDeFilas entrada(Manija(), copia.tabla, columnas);
        for (int fila = 0; fila < leidas; ++fila)
            PonConChecksum(entrada, primeros, filas.get(), fila);
        entrada.Termina();
        m_filas += leidas;
        if (!Sigue())
            throw ErrorDeEstado(u"57014"_s, {});
    }
    Pide(Manija(), u"CLOSE "_s + lectura);
}

QString MotorPostgres::SqlColumnas(const QString& tabla) const {
    return u"SELECT attname::text, pg_catalog.format_type(atttypid, NULL) FROM pg_catalog.pg_attribute"
           " WHERE attrelid = pg_catalog.to_regclass('%1') AND attnum > 0 AND NOT attisdropped"
           " AND attname::text <> '%2' ORDER BY pg_attribute.attnum::integer"_s.arg(tabla, ColumnaDeAlta());
}

QString MotorPostgres::SqlTablas() const {
    return u"SELECT relname::text FROM pg_catalog.pg_class WHERE relnamespace = pg_catalog.to_regnamespace('familia')"
           " AND relkind = 'r' AND relname::text NOT IN ('version_esquema', 'cambios') ORDER BY pg_class.oid"_s;
}

QString MotorPostgres::NumeroDeFila(const QString& tabla) const {
    return tabla + u'.' + ColumnaDeAlta();
}

QString MotorPostgres::SqlEnOrdenDeAlta(const QString& tabla, const QString& condicion) const {
    return u"FROM %1 %2 ORDER BY %3"_s.arg(tabla, condicion, ColumnaDeAlta());
}

QString MotorPostgres::SqlUnidas(const QStringList& columnas) const {
    return u"CAST(pg_catalog.json_build_array("_s + columnas.join(u", "_s) + u") AS text)"_s;
}

void MotorPostgres::CopiaEn(const QString& /*archivo*/) {
    throw ErrorBase(NumeroError::MotorAjeno,
                    u"La base de datos está en un servidor: sus copias se hacen con los programas del servidor."_s);
}

void MotorPostgres::ExigeSola() {
    const ResultadoPg fila = Pide(
        Manija(), u"SELECT count(*) FROM pg_catalog.pg_stat_activity WHERE datname OPERATOR(pg_catalog.=)"
                  " pg_catalog.current_database() AND pid <> pg_catalog.pg_backend_pid() AND usesysid IS NOT NULL"_s);
    if (Valor(fila.get(), 0, 0) != "0")
        throw ErrorBase(
            NumeroError::BaseBloqueada,
            u"La base de datos está ocupada por otro programa: espere a que termine y vuelva a intentarlo."_s);
}

/// Neither a transaction's words nor those that make tables can be prepared.
bool MotorPostgres::SePrepara(const QString& sql) const {
    static const QStringList preparables{u"SELECT"_s, u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s, u"WITH"_s, u"VALUES"_s};
    return preparables.contains(PrimeraPalabra(sql)) && !LeePorPartes(sql);
}

bool MotorPostgres::LeePorPartes(const QString& sql) const {
    return m_memoria == Memoria::Corta && PrimeraPalabra(sql) == u"SELECT";
}

bool MotorPostgres::CorreSinPreparar(QSqlQuery& consulta, const QString& sql, const QVariantList& valores) {
    const QString texto = ConLiterales(sql, valores);
    if (!LeePorPartes(sql))
        return consulta.exec(texto);
    const QString lectura = u"lectura_%1"_s.arg(++m_lecturas);
    return consulta.exec(u"DECLARE %1 NO SCROLL CURSOR WITH HOLD FOR %2"_s.arg(lectura, texto)) &&
           consulta.exec(u"FETCH %1 FROM %2"_s.arg(kFilasPorTurno).arg(lectura));
}

bool MotorPostgres::TraeMas(QSqlQuery& consulta) {
    const QString texto = consulta.lastQuery();
    const bool hayMas = texto.startsWith("FETCH "_L1) && consulta.size() == kFilasPorTurno;
    return hayMas && consulta.exec(texto) && consulta.next();
}

void MotorPostgres::Suelta(QSqlQuery& consulta) noexcept {
    const QString texto = consulta.lastQuery();
    if (texto.startsWith("FETCH "_L1) && !EstaPerdida())
        consulta.exec(u"CLOSE "_s + texto.section(u' ', -1));
}

/// Only what may take long and can be undone is watched.
std::optional<int> MotorPostgres::EjecutaConVigia(const QString& sql, const QVariantList& valores) {
    static const QStringList vigiladas{u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s};
    if (!m_vigia || EstaPerdida() || !vigiladas.contains(PrimeraPalabra(sql)))
        return std::nullopt;
    if (PQsendQuery(Manija(), ConLiterales(sql, valores).toUtf8().constData()) == 0)
        throw ConexionPerdida(QString::fromUtf8(PQerrorMessage(Manija())).trimmed());
    const ResultadoPg resultado = EsperaFin();
    if (EstaPerdida())
        throw ConexionPerdida(QString::fromUtf8(PQerrorMessage(Manija())).trimmed());
    const ExecStatusType estado = PQresultStatus(resultado.get());
    if (estado != PGRES_COMMAND_OK && estado != PGRES_TUPLES_OK)
        throw ErrorDeResultado(resultado.get());
    const int cambiadas = QByteArray(PQcmdTuples(resultado.get())).toInt();
    m_filas += cambiadas;
    if (!Sigue()) // a quick one ends before anybody has looked
        throw ErrorDeEstado(u"57014"_s, {});
    return cambiadas;
}

/// Asked to stop, it asks the server at each look: that passes over what comes before the statement has begun.
ResultadoPg MotorPostgres::EsperaFin() const {
    bool cortada = false;
    while (PQisBusy(Manija()) != 0) {
        cortada = cortada || !Sigue();
        if (cortada) {
            const std::unique_ptr<PGcancel, decltype(&PQfreeCancel)> corte(PQgetCancel(Manija()), PQfreeCancel);
            std::array<char, 256> queja{};
            PQcancel(corte.get(), queja.data(), static_cast<int>(queja.size()));
        }
        (void)EsperaEnLinea(Manija(), Espera::Lectura, kCadaMirada);
        if (PQconsumeInput(Manija()) == 0)
            break;
    }
    ResultadoPg resultado(PQgetResult(Manija()));
    while (const ResultadoPg resto{PQgetResult(Manija())}) {
    }
    return resultado;
}

/// A transaction in which a statement failed would be undone without a word.
void MotorPostgres::ExigeConfirmable() const {
    if (!EstaPerdida() && PQtransactionStatus(Manija()) == PQTRANS_INERROR)
        throw ErrorBase(NumeroError::FallaDelMotor, u"La base de datos no pudo hacer lo que se le pidió."_s);
}

/// The server's own number of the transaction, given when it changes something.
QString MotorPostgres::MarcaDeTransaccion() {
    const ResultadoPg fila = Pide(Manija(), u"SELECT pg_catalog.pg_current_xact_id_if_assigned()"_s);
    return QString::fromUtf8(Valor(fila.get(), 0, 0));
}

bool MotorPostgres::QuedoTransaccion(const QString& marca) {
    if (marca.isEmpty())
        return true;
    const ResultadoPg fila = Pide(Manija(), u"SELECT pg_catalog.pg_xact_status('%1')"_s.arg(marca));
    const QByteArrayView estado = Valor(fila.get(), 0, 0);
    if (estado != "committed" && estado != "aborted")
        throw ErrorBase(NumeroError::FallaDelMotor, u"La base de datos no pudo hacer lo que se le pidió."_s);
    return estado == "committed";
}

bool MotorPostgres::EstaPerdida() const {
    return !Conexion().isOpen() || PQstatus(Manija()) == CONNECTION_BAD;
}

/// The text for the server with each value written where its `?` stands.
QString MotorPostgres::ConLiterales(const QString& sql, const QVariantList& valores) const {
    QStringList fichas = Fichas(TraduceAPostgres(sql));
    qsizetype siguiente = 0;
    for (QString& ficha : fichas) {
        if (ficha != u"?" || siguiente >= valores.size())
            continue;
        QVariant valor = valores[siguiente++];
        if (!valor.isValid()) {
            ficha = u"NULL"_s;
            continue;
        }
        if (valor.metaType() == QMetaType::fromType<QString>() && valor.toString().isNull())
            valor = u""_s; // a text is never null
        QSqlField campo(QString(), valor.metaType());
        campo.setValue(valor);
        ficha = Conexion().driver()->formatValue(campo);
    }
    return fichas.join(QString());
}

} // namespace xa518
