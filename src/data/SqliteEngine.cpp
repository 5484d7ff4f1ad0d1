#include "data/SqliteEngine.h"

#include "data/Base.h"
#include "data/Dialect.h"
#include "data/RecordChecksum.h"
#include "data/SqliteNewRows.h"
#include "values/FileFailure.h"
#include "values/PrivateAccess.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QUrl>
#include <QUuid>

#include <sqlite3.h>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Another program's write takes milliseconds; one that holds the base longer is told to the user.
constexpr int kEsperaMs = 500;

sqlite3* Manija(const QSqlDatabase& conexion) {
    const QVariant manija = conexion.driver()->handle();
    return *static_cast<sqlite3* const*>(manija.constData());
}

/// Qt's driver and the functions of this file hand each other the engine's own objects: both have to have been linked
/// with the same one, down to its build.
void ExigeUnSoloMotor(QSqlQuery consulta) {
    const bool contesta = consulta.exec(u"SELECT sqlite_source_id()"_s) && consulta.next();
    const QString delControlador = contesta ? consulta.value(0).toString() : QString();
    const QString propio = QString::fromUtf8(sqlite3_sourceid());
    if (delControlador != propio)
        throw ErrorBase(NumeroError::MotorAjeno, u"El programa está instalado con dos motores de base de datos."_s,
                        u"%1 / %2"_s.arg(delControlador, propio));
}

/// The name of a machine in the network stands behind two slashes, where the engine looks for a machine to ask.
QString UriDe(const QString& ruta, ModoApertura modo) {
    const auto camino = QString::fromLatin1(QUrl::toPercentEncoding(QFileInfo(ruta).absoluteFilePath(), "/:"));
    const QString sinMaquina = camino.startsWith("//"_L1) ? u"//"_s : QString();
    return u"file:%1%2?mode=%3"_s.arg(sinMaquina, camino, modo == ModoApertura::Nueva ? u"rwc"_s : u"rw"_s);
}

void ExigeArchivo(const QString& ruta) {
    if (!QFileInfo(ruta).isFile())
        throw ErrorBase(NumeroError::BaseNoExiste, FallaDeArchivo(Intento::Leer, ruta).Texto());
}

/// Makes the empty file first, so that it is never, not even for a moment, readable by others.
void CreaArchivoPrivado(const QString& ruta) {
    QFile archivo(ruta);
    const bool hecho = archivo.open(QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner);
    if (hecho && HazPrivado(archivo))
        return;
    const Error falla = FallaDeArchivo(Intento::Escribir, archivo);
    if (hecho)
        archivo.remove();
    throw ErrorBase(falla.Numero(), falla.Texto(), falla.Detalle());
}

/// The engine has no code for these two: its words are all that tells them.
bool FaltaTabla(const QString& motor) {
    return motor.contains("no such table"_L1);
}

bool FaltaColumna(const QString& motor) {
    return motor.contains("no such column"_L1) || motor.contains("has no column named"_L1);
}

int NumeroDe(int codigo, const QString& motor) {
    switch (codigo) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY: return static_cast<int>(NumeroError::ClaveDuplicada);
    case SQLITE_READONLY_DIRECTORY: return static_cast<int>(NumeroError::AccesoAlDisco);
    default: break;
    }
    switch (codigo & 0xff) {
    case SQLITE_CANTOPEN:
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_READONLY: return static_cast<int>(NumeroError::BaseBloqueada);
    default: break;
    }
    if (FaltaTabla(motor))
        return static_cast<int>(NumeroError::TablaNoExiste);
    if (FaltaColumna(motor))
        return static_cast<int>(NumeroError::CampoNoExiste);
    return codigo;
}

/// By the class of the code, its lowest byte.
QString ExplicacionDeClase(int codigo, const QString& motor) {
    switch (codigo & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"La base de datos está ocupada por otro programa: espere a que termine y vuelva a intentarlo."_s;
    case SQLITE_READONLY: return u"La base de datos es de sólo lectura."_s;
    case SQLITE_CANTOPEN: return u"No se puede abrir la base de datos."_s;
    case SQLITE_FULL: return u"El disco está lleno."_s;
    case SQLITE_IOERR: return u"El disco falló al leer o escribir la base de datos."_s;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: return u"El archivo está dañado o no es una base de datos."_s;
    case SQLITE_CONSTRAINT: return u"La base de datos no admite uno de los datos."_s;
    case SQLITE_NOMEM: return u"No hay memoria suficiente."_s;
    default: break;
    }
    if (FaltaTabla(motor))
        return u"A la base de datos le falta una tabla."_s;
    if (FaltaColumna(motor))
        return u"A una tabla de la base de datos le falta una columna."_s;
    return u"La base de datos no pudo hacer lo que se le pidió."_s;
}

} // namespace

MotorSqlite::MotorSqlite() : m_nombre(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

MotorSqlite::~MotorSqlite() {
    QSqlDatabase::removeDatabase(m_nombre);
}

void MotorSqlite::Abre(const LugarDeBase& lugar, ModoApertura modo) {
    const QString& ruta = lugar.ruta;
    if (modo == ModoApertura::Cualquiera)
        modo = QFileInfo::exists(ruta) ? ModoApertura::Existente : ModoApertura::Nueva;
    if (modo == ModoApertura::Nueva)
        CreaArchivoPrivado(ruta);
    ExigeArchivo(ruta);
    m_ruta = ruta;
    QSqlDatabase conexion = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_nombre);
    conexion.setDatabaseName(UriDe(ruta, modo));
    conexion.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(kEsperaMs));
    if (!conexion.open())
        throw ErrorDe(conexion.lastError());
    Prepara();
}

void MotorSqlite::Prepara() {
    ExigeUnSoloMotor(QSqlQuery(Conexion()));
    sqlite3* manija = Manija(Conexion());
    sqlite3_db_config(manija, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    RegistraFunciones(manija);
    if (RegistraFilasNuevas(manija) != SQLITE_OK)
        throw ErrorDe(sqlite3_extended_errcode(manija), QString::fromUtf8(sqlite3_errmsg(manija)));
    Pide(u"PRAGMA trusted_schema=OFF"_s);
    Pide(u"PRAGMA foreign_keys=ON"_s);
    Pide(u"SELECT count(*) FROM sqlite_master"_s); // the first read finds a locked file or one that is no base
    // The rollback journal: the write-ahead log of the packaged engine can lose a commit when several programs share
    // the file. EXTRA also makes the journal's removal durable, so that a power cut never brings an old state back.
    Pide(u"PRAGMA journal_mode=DELETE"_s);
    Pide(u"PRAGMA synchronous=EXTRA"_s);
    PonMemoria(Memoria::Amplia);
    if (sqlite3_db_readonly(manija, "main") == 1)
        throw ErrorBase(NumeroError::BaseBloqueada, u"La base '%1' es de sólo lectura."_s.arg(m_ruta));
}

void MotorSqlite::Pide(const QString& sql) const {
    QSqlQuery consulta(Conexion());
    if (!consulta.exec(sql))
        throw ErrorDe(consulta.lastError());
}

QSqlDatabase MotorSqlite::Conexion() const {
    return QSqlDatabase::database(m_nombre, false);
}

QString MotorSqlite::Traduce(const QString& sql) const {
    return TraduceASqlite(sql);
}

std::exception_ptr MotorSqlite::FallaDe(const QSqlError& error) const {
    return std::make_exception_ptr(ErrorDe(error));
}

ErrorBase MotorSqlite::ErrorDe(const QSqlError& error) const {
    return ErrorDe(error.nativeErrorCode().toInt(), error.databaseText());
}

ErrorBase MotorSqlite::ErrorDe(int codigo, const QString& motor) const {
    if (const std::optional<int> numero = NumeroDeFuncion(codigo))
        return {*numero, motor}; // these words are our own
    return {NumeroDe(codigo, motor), ExplicacionDe(codigo, motor), motor};
}

QString MotorSqlite::ExplicacionDe(int codigo, const QString& motor) const {
    switch (codigo) {
    case SQLITE_CANTOPEN: return FallaDeArchivo(Intento::Leer, m_ruta).Texto();
    case SQLITE_READONLY_DBMOVED: return u"El archivo de la base de datos ya no está en su lugar."_s;
    case SQLITE_READONLY_DIRECTORY: return FallaDeCarpeta(QFileInfo(m_ruta).path()).Texto();
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY: return u"Ya hay un registro con esa clave."_s;
    case SQLITE_CONSTRAINT_NOTNULL: return u"Falta un dato obligatorio."_s;
    default: return ExplicacionDeClase(codigo, motor);
    }
}

void MotorSqlite::PonVigia(Vigia vigia) {
    constexpr int kPasos = 20'000; // of the engine's own machine: some thousand times a second
    sqlite3* manija = Manija(Conexion());
    m_vigia = std::move(vigia);
    m_filasAntes = sqlite3_total_changes64(manija);
    const auto pregunta = [](void* objeto) {
        const auto* yo = static_cast<const MotorSqlite*>(objeto);
        return yo->m_vigia(sqlite3_total_changes64(Manija(yo->Conexion())) - yo->m_filasAntes) ? 0 : 1;
    };
    sqlite3_progress_handler(manija, kPasos, m_vigia ? +pregunta : nullptr, this);
}

QStringList MotorSqlite::SqlComienza(Turno /*turno*/) const {
    return {u"BEGIN IMMEDIATE"_s};
}

/// 64 MB: the indexes of a large declaration, filled in no order, fit. What is put in order beyond 16 MB waits on disk.
void MotorSqlite::PonMemoria(Memoria memoria) {
    Pide(memoria == Memoria::Amplia ? u"PRAGMA cache_size=-65536"_s : u"PRAGMA cache_size=-16384"_s);
}

QString MotorSqlite::SqlVersion() const {
    return u"PRAGMA data_version"_s;
}

QString MotorSqlite::SqlVersionDelEsquema() const {
    return u"PRAGMA user_version"_s;
}

QString MotorSqlite::SqlPonVersionDelEsquema(int version) const {
    return u"PRAGMA user_version=%1"_s.arg(version);
}

QStringList MotorSqlite::ClaveDe(const QString& tabla) const {
    QStringList clave;
    QSqlQuery consulta(Conexion());
    if (!consulta.exec(u"SELECT name FROM pragma_table_info('%1') WHERE pk > 0"_s.arg(tabla)))
        throw ErrorDe(consulta.lastError());
    while (consulta.next())
        clave.append(consulta.value(0).toString());
    return clave;
}

/// A set that the engine refuses for a key is undone by it, and gone through row by row.
QList<size_t> MotorSqlite::AgregaFilas(const FilasNuevas& filas) {
    sqlite3* manija = Manija(Conexion());
    if (sqlite3_get_autocommit(manija) != 0) // a failing disk makes the engine undo a transaction by itself
        throw ErrorBase(NumeroError::AccesoAlDisco, u"La base de datos no pudo hacer lo que se le pidió."_s);
    AltaSqlite alta(manija, filas, ClaveDe(filas.NombreDeTabla()));
    const auto entra = [&](int codigo) {
        if (codigo == SQLITE_OK)
            return true;
        const ErrorBase error = ErrorDe(sqlite3_extended_errcode(manija), QString::fromUtf8(sqlite3_errmsg(manija)));
        if (!error.Es(NumeroError::ClaveDuplicada))
            throw error;
        return false;
    };
    QList<size_t> rechazadas;
    if (entra(alta.Todas()))
        return rechazadas;
    for (size_t lugar = 0; lugar < filas.Cuantas(); ++lugar) {
        if (!entra(alta.Una(lugar)))
            rechazadas.append(alta.Fila(lugar));
    }
    return rechazadas;
}

QString MotorSqlite::SqlColumnas(const QString& tabla) const {
    return u"SELECT name, type FROM pragma_table_info('%1') ORDER BY cid"_s.arg(tabla);
}

QString MotorSqlite::SqlTablas() const {
    return u"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name"_s;
}

QString MotorSqlite::NumeroDeFila(const QString& tabla) const {
    return tabla + u".rowid"_s;
}

/// The rows are found first, by the condition alone, and then read in their order: read as they are found they would
/// all have to be put in order, which takes as long as copying them.
QString MotorSqlite::SqlEnOrdenDeAlta(const QString& tabla, const QString& condicion) const {
    return u"FROM %1 WHERE rowid IN (SELECT rowid FROM %1 %2) ORDER BY rowid"_s.arg(tabla, condicion);
}

/// The bytes that the array is made of needn't be turned into another encoding.
QString MotorSqlite::SqlUnidas(const QStringList& columnas) const {
    return u"CAST(json_array("_s + columnas.join(u", "_s) + u") AS BLOB)"_s;
}

QStringList MotorSqlite::Defectos() {
    QSqlQuery lineas(Conexion());
    if (!lineas.exec(u"PRAGMA integrity_check(10)"_s))
        throw ErrorDe(lineas.lastError());
    QStringList defectos;
    while (lineas.next()) {
        if (lineas.value(0).toString() != u"ok")
            defectos += lineas.value(0).toString().split(u'\n', Qt::SkipEmptyParts);
    }
    if (lineas.lastError().isValid())
        throw ErrorDe(lineas.lastError());
    return defectos;
}

void MotorSqlite::CopiaEn(const QString& archivo) {
    QSqlQuery consulta(Conexion());
    consulta.prepare(u"VACUUM INTO ?"_s);
    consulta.bindValue(0, archivo);
    if (!consulta.exec())
        throw ErrorDe(consulta.lastError());
}

void MotorSqlite::ExigeSola() {
    Pide(u"BEGIN EXCLUSIVE"_s);
    Pide(u"ROLLBACK"_s);
}

// The fields stand in the statement twice, as what is stored and as what is summed.
void MotorSqlite::CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) {
    const CamposDeCopia campos(base.Describe(copia.tabla), copia);
    const QString lista = campos.expresiones.join(u", "_s);
    const QString sql = u"INSERT INTO %1 SELECT %2, checksum(%3, %2) "_s.arg(copia.tabla, lista).arg(primeros);
    base.Ejecuta(sql + copia.desde, campos.valores + campos.valores + copia.valores);
}

} // namespace xa518
