#include "support/ServerBase.h"

#include "support/TemporaryBase.h"

#include <QUuid>

#include <libpq-fe.h>

namespace xa518::prueba {

namespace {

const QString kPlantilla = u"xa_plantilla"_s;

QString Servidor() {
    return qEnvironmentVariable("XA518_TEST_SERVER");
}

QString TextoDe(const QString& base) {
    return Servidor() + u" dbname="_s + base;
}

/// A connection to the server's own database.
class Mando {
  public:
    Mando() : m_conexion(PQconnectdb(TextoDe(u"postgres"_s).toUtf8().constData()), PQfinish) {}

    QString Pide(const QString& sql) {
        const std::unique_ptr<PGresult, decltype(&PQclear)> resultado(
            PQexec(m_conexion.get(), sql.toUtf8().constData()), PQclear);
        const ExecStatusType estado = PQresultStatus(resultado.get());
        if (estado != PGRES_COMMAND_OK && estado != PGRES_TUPLES_OK)
            throw std::runtime_error(PQerrorMessage(m_conexion.get()));
        return PQntuples(resultado.get()) > 0 ? QString::fromUtf8(PQgetvalue(resultado.get(), 0, 0)) : QString();
    }

  private:
    std::unique_ptr<PGconn, decltype(&PQfinish)> m_conexion;
};

/// Made by the first test that needs it; the others wait.
void ExigePlantilla(Mando& mando) {
    mando.Pide(u"SELECT pg_advisory_lock(1)"_s);
    if (mando.Pide(u"SELECT 1 FROM pg_database WHERE datname = '%1' AND datistemplate"_s.arg(kPlantilla)).isEmpty()) {
        mando.Pide(u"CREATE DATABASE "_s + kPlantilla);
        (void)CreaBase(TextoDe(kPlantilla));
        mando.Pide(u"ALTER DATABASE %1 IS_TEMPLATE true"_s.arg(kPlantilla));
    }
    mando.Pide(u"SELECT pg_advisory_unlock(1)"_s);
}

} // namespace

bool HayServidorDePrueba() {
    return !Servidor().isEmpty();
}

void PideAlServidor(const QString& sql) {
    Mando().Pide(sql);
}

void CortaLaConexion(Base& base) {
    Registros fila = base.Lee(u"SELECT pg_backend_pid()"_s);
    const qint64 pid = fila.Siguiente() ? fila.Entero(0) : 0;
    PideAlServidor(u"SELECT pg_terminate_backend(%1, 5000)"_s.arg(pid));
}

BaseEnServidor::BaseEnServidor(const QString& plantilla)
    : m_nombre(u"xa_"_s + QUuid::createUuid().toString(QUuid::Id128)) {
    Mando mando;
    if (plantilla == kPlantilla)
        ExigePlantilla(mando);
    mando.Pide(u"CREATE DATABASE %1 TEMPLATE %2"_s.arg(m_nombre, plantilla));
}

std::unique_ptr<BaseEnServidor> BaseEnServidor::ConTablas() {
    return HayServidorDePrueba() ? std::unique_ptr<BaseEnServidor>(new BaseEnServidor(kPlantilla)) : nullptr;
}

std::unique_ptr<BaseEnServidor> BaseEnServidor::Vacia() {
    return std::unique_ptr<BaseEnServidor>(new BaseEnServidor(u"template0"_s));
}

BaseEnServidor::~BaseEnServidor() {
    try {
        Mando().Pide(u"DROP DATABASE %1 WITH (FORCE)"_s.arg(m_nombre));
    } catch (const std::exception& falla) {
        ADD_FAILURE() << falla.what();
    }
}

QString BaseEnServidor::Texto() const {
    return TextoDe(m_nombre);
}

} // namespace xa518::prueba
