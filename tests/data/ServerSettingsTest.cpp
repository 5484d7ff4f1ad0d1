#include "data/PostgresErrors.h"
#include "data/SchemaVersion.h"
#include "support/BaseFixture.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>

#include <optional>

namespace {

struct Dicho {
    std::optional<FallaDeServidor> falla;
    QString texto;
};

/// What the work is told of a server that won't do; nothing when it passes.
template <typename Trabajo>
Dicho DichoDe(const Trabajo& trabajo) {
    try {
        trabajo();
    } catch (const ErrorDeServidor& error) {
        return {error.Falla(), error.Texto()};
    }
    return {};
}

/// A server of its own that is reached by the network, ciphered and with passwords.
class ServerSettings : public testing::Test {
  protected:
    ServerSettings() {
        Corre(u"start-tls"_s);
        puerto = QString::fromLatin1(BytesDe(carpeta + u"/port"_s)).trimmed();
        Pide(u"postgres"_s, {u"CREATE DATABASE xa"_s});
        (void)CreaBase(Socket(u"xa"_s));
        Pide(u"xa"_s, {u"CREATE ROLE cifrada SUPERUSER LOGIN PASSWORD 'uno'"_s,
                       u"CREATE ROLE clave SUPERUSER LOGIN PASSWORD 'dos'"_s, u"SET password_encryption = 'md5'"_s,
                       u"CREATE ROLE antigua SUPERUSER LOGIN PASSWORD 'tres'"_s});
        Claves("cifrada:uno\nlocalhost:*:*:clave:dos\nlocalhost:*:*:antigua:tres\n");
        const QString servicios = lugar.filePath(u"servicios"_s);
        EscribeEn(servicios, u"[oficina]\nhost=localhost\nport=%1\ndbname=xa\nuser=clave\n"_s.arg(puerto).toUtf8());
        qputenv("PGSERVICEFILE", servicios.toLocal8Bit());
    }
    ~ServerSettings() override {
        Corre(u"stop"_s);
        qunsetenv("PGSERVICEFILE");
        qunsetenv("PGPASSFILE");
    }

    void Corre(const QString& orden) const {
        QProcess guion;
        guion.setProcessChannelMode(QProcess::ForwardedChannels);
        guion.start(QStringLiteral(XA518_SOURCE_DIR "/tests/support/server"), {orden, carpeta});
        EXPECT_TRUE(guion.waitForFinished(60'000) && guion.exitCode() == 0) << qPrintable(orden);
    }
    void Pide(const QString& base, const QStringList& ordenes) const {
        const std::unique_ptr<PGconn, decltype(&PQfinish)> conexion(PQconnectdb(Socket(base).toUtf8().constData()),
                                                                    PQfinish);
        for (const QString& orden : ordenes)
            PQclear(PQexec(conexion.get(), orden.toUtf8().constData()));
        EXPECT_STREQ(PQerrorMessage(conexion.get()), "");
    }
    QString Socket(const QString& base) const {
        return u"host=%1 port=%2 user=postgres dbname=%3"_s.arg(carpeta, puerto, base);
    }
    /// The file of the passwords, the first line for the user alone.
    void Claves(const QByteArray& lineas) const {
        const QString archivo = lugar.filePath(u"claves"_s);
        EscribeEn(archivo, "*:*:*:" + lineas);
        QFile::setPermissions(archivo, QFile::ReadOwner | QFile::WriteOwner);
        qputenv("PGPASSFILE", archivo.toLocal8Bit());
    }
    Dicho Abre(const QString& texto) const {
        return DichoDe(
            [&] { (void)Base::Abre(QString(texto).replace(u"PUERTO"_s, puerto).replace(u"CA/"_s, carpeta + u'/')); });
    }
    struct Caso {
        QString texto;
        std::optional<FallaDeServidor> falla;
        QString dice;
    };
    void Comprueba(const QList<Caso>& casos) const {
        for (const Caso& caso : casos) {
            const Dicho dicho = Abre(caso.texto);
            EXPECT_EQ(dicho.falla, caso.falla) << qPrintable(caso.texto + u": "_s + dicho.texto);
            EXPECT_TRUE(dicho.texto.contains(caso.dice)) << qPrintable(caso.texto + u": "_s + dicho.texto);
        }
    }

    QTemporaryDir lugar;
    const QString carpeta = u"/tmp/xa-tls-"_s + QString::number(QCoreApplication::applicationPid());
    QString puerto;
};

TEST_F(ServerSettings, EachHasItsSentence) {
    using enum FallaDeServidor;
    const QString localhost = u"host=localhost port=PUERTO dbname=xa "_s;
    Comprueba({
        {localhost + u"user=clave"_s, {}, {}},
        {localhost + u"user=antigua"_s, {}, {}},
        {u"postgresql://clave@localhost:PUERTO/xa?sslmode=require"_s, {}, {}},
        {u"service=oficina"_s, {}, {}},
        {localhost + u"user=cifrada sslmode=verify-full sslrootcert=CA/ca.crt"_s, {}, {}},
        {localhost + u"user=cifrada sslmode=verify-full sslrootcert=CA/otherca.crt"_s, SinCifrado,
         u"no es el esperado"_s},
        {u"host=127.0.0.1 port=PUERTO dbname=xa user=cifrada sslmode=verify-full sslrootcert=CA/ca.crt"_s, SinCifrado,
         u"no es el esperado"_s},
        {localhost + u"user=cifrada sslmode=verify-full sslrootcert=/no/hay.crt"_s, SinCifrado,
         u"póngalo en '/no/hay.crt'"_s},
        {localhost + u"user=cifrada sslmode=disable"_s, SinCifrado,
         u"sólo admite al usuario 'cifrada' por una conexión cifrada"_s},
        {localhost + u"user=nadie"_s, Cuenta, u"no admite al usuario 'nadie' desde este equipo"_s},
        {u"host=127.0.0.1 port=PUERTO dbname=xa user=clave"_s, Cuenta, u"pide la contraseña del usuario 'clave'"_s},
        {u"host=127.0.0.1 port=1 dbname=xa user=clave"_s, Puerto, u"'127.0.0.1', puerto 1"_s},
        {u"service=almacen"_s, Texto, u"No se conoce el servicio 'almacen'"_s},
        {localhost + u"sslmode=siempre"_s, Texto, u"un valor que no es válido"_s},
    });
    Claves("clave:otra\n");
    Comprueba({{localhost + u"user=clave"_s, Cuenta, u"'clave' o su contraseña"_s},
               {u"service=oficina"_s, Cuenta, u"'clave' o su contraseña"_s}});
    Pide(u"postgres"_s, {u"ALTER SYSTEM SET ssl = off"_s, u"SELECT pg_reload_conf()"_s});
    Claves("clave:dos\n");
    QString dicho;
    for (int vez = 0; vez < 100 && !dicho.contains(u"no ofrece"_s); ++vez) { // the server reads it by and by
        dicho = Abre(localhost + u"user=clave sslmode=require"_s).texto;
        QThread::msleep(50);
    }
    EXPECT_TRUE(dicho.contains(u"no ofrece la conexión cifrada que pide sslmode=require"_s)) << qPrintable(dicho);
    const auto base = Base::Abre(Socket(u"xa"_s));
    base->PonVersionDelEsquema(4);
    EXPECT_EQ(DichoDe([&] { ExigeVersion(*base, 3); }).falla, Posterior);
    EXPECT_EQ(CodigoDeSalida(ErrorDeServidor(Posterior, {}), 3), 20);
}

TEST(ServerChecks, ServerAndClockHaveTheirLimits) {
    EXPECT_EQ(DichoDe([] { ExigeVersionDelServidor(120019); }).falla, FallaDeServidor::Antiguo);
    EXPECT_FALSE(DichoDe([] { ExigeVersionDelServidor(130000); }).falla);
    for (const qint64 signo : {-1, 1}) {
        EXPECT_FALSE(DichoDe([&] { ExigeMismaHora(500'000, 500'000 + signo * 120'000); }).falla);
        EXPECT_EQ(
            DichoDe([&] { ExigeMismaHora(500'000, 500'000 + signo * 181'000); }).texto,
            u"El reloj de este equipo y el del servidor difieren en 3 minutos: corrija la hora antes de trabajar."_s);
    }
}

} // namespace
