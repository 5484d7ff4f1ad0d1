#include "data/ServerControl.h"

#include "data/PostgresErrors.h"
#include "data/PostgresRows.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kBaseDelServidor = u"postgres"_s;

using Manija = std::unique_ptr<PGconn, decltype(&PQfinish)>;

Manija Conecta(const Parametros& parametros) {
    return {PQconnectdb(TextoDeConexion(parametros).toUtf8().constData()), PQfinish};
}

} // namespace

struct MandoDeServidor::Conexion {
    Manija manija;
};

MandoDeServidor::MandoDeServidor(const QString& conexion, Lugar lugar) {
    Parametros parametros = LeeConexion(conexion);
    parametros.insert(u"client_encoding"_s, u"UTF8"_s);
    if (!parametros.contains(u"connect_timeout"_s))
        parametros.insert(u"connect_timeout"_s, u"10"_s);
    Manija manija = Conecta(parametros); // which also tells the name of the database, be it there or not
    m_nombrada = QString::fromUtf8(PQdb(manija.get()));
    if (lugar == Lugar::AlLado) {
        parametros.insert(u"dbname"_s, kBaseDelServidor);
        manija = Conecta(parametros);
    }
    if (PQstatus(manija.get()) != CONNECTION_OK)
        throw FallaAlConectar(parametros);
    m_conexion = std::make_unique<Conexion>(Conexion{std::move(manija)});
    Pide(u"SET client_min_messages = warning"_s);
}

MandoDeServidor::~MandoDeServidor() = default;

QList<QStringList> MandoDeServidor::Pide(const QString& sql) {
    const ResultadoPg resultado = xa518::Pide(m_conexion->manija.get(), sql);
    QList<QStringList> filas;
    for (int fila = 0; fila < PQntuples(resultado.get()); ++fila) {
        QStringList valores;
        for (int columna = 0; columna < PQnfields(resultado.get()); ++columna)
            valores.append(QString::fromUtf8(PQgetvalue(resultado.get(), fila, columna)));
        filas.append(valores);
    }
    return filas;
}

QString MandoDeServidor::PideUno(const QString& sql) {
    return Pide(sql).value(0).value(0);
}

bool MandoDeServidor::Existe(const QString& base) {
    return !Pide(u"SELECT 1 FROM pg_database WHERE datname = "_s + TextoSql(base)).isEmpty();
}

/// The server's own helpers have no user.
bool MandoDeServidor::EstaEnUso(const QString& base) {
    return !Pide(u"SELECT 1 FROM pg_stat_activity WHERE usesysid IS NOT NULL AND pid <> pg_backend_pid()"
                 " AND datname = "_s +
                 TextoSql(base))
                .isEmpty();
}

void MandoDeServidor::Crea(const QString& base) {
    Pide(u"CREATE DATABASE %1 ENCODING 'UTF8' TEMPLATE template0"_s.arg(NombreSql(base)));
}

void MandoDeServidor::Quita(const QString& base) {
    Pide(u"DROP DATABASE IF EXISTS %1 WITH (FORCE)"_s.arg(NombreSql(base)));
}

QString ConexionConBase(const LugarDeBase& lugar, const QString& base) {
    Parametros parametros = LeeConexion(lugar.ruta);
    parametros.insert(u"dbname"_s, base);
    return TextoDeConexion(parametros);
}

QString NombreSql(const QString& nombre) {
    return u'"' + QString(nombre).replace(u'"', u"\"\""_s) + u'"';
}

QString TextoSql(const QString& texto) {
    return u'\'' + QString(texto).replace(u'\'', u"''"_s) + u'\'';
}

} // namespace xa518
