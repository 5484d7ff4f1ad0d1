#include "data/ServerDump.h"

#include "data/Base.h"
#include "data/PostgresErrors.h"
#include "data/ServerControl.h"
#include "values/Progress.h"

#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <functional>
#include <numeric>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// How many rows each table has, by its name with its schema.
using FilasPorTabla = QMap<QString, qint64>;

constexpr int kEntrePreguntas = 100; ///< milliseconds, whether to go on

/// One of the server's programs. The password comes from libpq's own places, never from here.
class ProgramaDelServidor {
  public:
    ProgramaDelServidor(const QString& nombre, const QStringList& argumentos) : m_nombre(nombre) {
        const QString ruta = QStandardPaths::findExecutable(nombre);
        if (ruta.isEmpty())
            throw ErrorBase(NumeroError::FallaDelMotor,
                            u"Falta el programa %1, que hace y restaura las copias de una base en un servidor: instale"
                            " el paquete postgresql-client."_s.arg(nombre));
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert(u"LC_MESSAGES"_s, u"C"_s);
        m_proceso.setProcessEnvironment(entorno);
        m_proceso.start(ruta, argumentos, QIODevice::ReadOnly);
    }

    ProgramaDelServidor(const ProgramaDelServidor&) = delete;
    ProgramaDelServidor& operator=(const ProgramaDelServidor&) = delete;
    ~ProgramaDelServidor() {
        m_proceso.kill(); // only one that was stopped still runs
        m_proceso.waitForFinished();
    }

    /// Runs to the end and hands out what it writes, line by line. Now and then it asks whether to go on.
    void Corre(const std::function<void(const QByteArray&)>& linea, const std::function<void()>& alEsperar) {
        while (m_proceso.state() != QProcess::NotRunning) {
            alEsperar();
            m_proceso.waitForReadyRead(kEntrePreguntas);
            while (m_proceso.canReadLine())
                linea(m_proceso.readLine());
        }
        while (m_proceso.canReadLine())
            linea(m_proceso.readLine());
        if (m_proceso.error() == QProcess::FailedToStart || m_proceso.exitStatus() != QProcess::NormalExit ||
            m_proceso.exitCode() != 0)
            throw Falla();
    }
    /// One that writes nothing, and doesn't tell how far it is.
    void Corre(Avance& avance) {
        Corre([](const QByteArray&) {}, [&avance] { avance.Va(0, 0); });
    }

  private:
    [[nodiscard]] ErrorBase Falla() {
        const QString queja = QString::fromLocal8Bit(m_proceso.readAllStandardError()).trimmed();
        if (queja.contains("server version mismatch"_L1))
            return {NumeroError::FallaDelMotor,
                    u"El programa %1 de este equipo es anterior al servidor: instale el paquete postgresql-client de la"
                    " versión del servidor."_s.arg(m_nombre),
                    queja};
        if (queja.contains("permission denied"_L1))
            return {NumeroError::BaseBloqueada, ErrorDeEstado(u"42501"_s, {}).Texto(), queja};
        return {NumeroError::FallaDelMotor,
                u"El programa %1 del servidor no pudo terminar su trabajo: revise que el servidor responda y que haya"
                " espacio en el disco, y vuelva a intentarlo."_s.arg(m_nombre),
                queja};
    }

    QString m_nombre;
    QProcess m_proceso;
};

QStringList TablasListadas(const QString& archivo) {
    static const QRegularExpression datos(u" TABLE DATA (\\S+) (\\S+) "_s);
    QStringList tablas;
    const auto lee = [&](const QByteArray& linea) {
        const QRegularExpressionMatch hallada = datos.match(QString::fromUtf8(linea));
        if (hallada.hasMatch())
            tablas.append(hallada.captured(1) + u'.' + hallada.captured(2));
    };
    ProgramaDelServidor(u"pg_restore"_s, {u"--list"_s, archivo}).Corre(lee, [] {});
    return tablas;
}

FilasPorTabla Cuenta(MandoDeServidor& mando) {
    FilasPorTabla filas;
    for (const QStringList& tabla :
         mando.Pide(u"SELECT 'familia.' || relname FROM pg_class WHERE relnamespace = to_regnamespace('familia')"
                    " AND relkind = 'r'"_s))
        filas.insert(tabla.constFirst(), mando.PideUno(u"SELECT count(*) FROM "_s + tabla.constFirst()).toLongLong());
    return filas;
}

FilasPorTabla FilasDeBase(const QString& conexion) {
    MandoDeServidor mando(conexion, MandoDeServidor::Lugar::EnLaBase);
    return Cuenta(mando);
}

qint64 Suma(const FilasPorTabla& filas) {
    return std::accumulate(filas.cbegin(), filas.cend(), qint64{0});
}

/// The rows that such a file holds, by pg_restore. A row is a line, since line ends within are written otherwise.
FilasPorTabla FilasDeVolcado(const QString& archivo, qint64 esperadas, Avance& avance) {
    static const QRegularExpression comienzo(u"^COPY (\\S+) .*FROM stdin;$"_s);
    FilasPorTabla filas;
    for (const QString& tabla : TablasListadas(archivo))
        filas.insert(tabla, 0);
    QString tabla;
    qint64 leidas = 0;
    const auto lee = [&](const QByteArray& linea) {
        if (tabla.isEmpty()) {
            tabla = comienzo.match(QString::fromUtf8(linea).trimmed()).captured(1);
        } else if (linea == "\\.\n") {
            tabla.clear();
        } else {
            ++filas[tabla];
            ++leidas;
        }
    };
    ProgramaDelServidor(u"pg_restore"_s, {u"--data-only"_s, u"--file=-"_s, archivo}).Corre(lee, [&] {
        avance.Va(std::min(leidas, esperadas), esperadas);
    });
    return filas;
}

ErrorBase NoCuadra() {
    return {NumeroError::FallaDelMotor, u"La copia no tiene las mismas filas que la base de datos."_s};
}

} // namespace

/// Both read the same moment, which the counting transaction holds.
void VuelcaBase(const QString& conexion, const QString& archivo, Avance& avance) {
    MandoDeServidor mando(conexion, MandoDeServidor::Lugar::EnLaBase);
    mando.Pide(u"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"_s);
    const QString momento = mando.PideUno(u"SELECT pg_export_snapshot()"_s);
    const FilasPorTabla filas = Cuenta(mando);
    ProgramaDelServidor(u"pg_dump"_s,
                        {u"--format=custom"_s, u"--no-password"_s, u"--schema=familia"_s, u"--schema=dialecto"_s,
                         u"--lock-wait-timeout=10000"_s, u"--snapshot="_s + momento, u"--file="_s + archivo,
                         u"--dbname="_s + TextoDeConexion(LeeConexion(conexion))})
        .Corre(avance);
    if (FilasDeVolcado(archivo, Suma(filas), avance) != filas)
        throw NoCuadra();
}

void LlenaDeVolcado(const QString& archivo, const QString& conexion, Avance& avance) {
    ProgramaDelServidor(u"pg_restore"_s,
                        {u"--no-owner"_s, u"--no-acl"_s, u"--no-password"_s, u"--exit-on-error"_s,
                         u"--single-transaction"_s, u"--dbname="_s + TextoDeConexion(LeeConexion(conexion)), archivo})
        .Corre(avance);
    const FilasPorTabla filas = FilasDeBase(conexion);
    if (FilasDeVolcado(archivo, Suma(filas), avance) != filas)
        throw NoCuadra();
}

} // namespace xa518
