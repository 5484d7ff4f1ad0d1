#include "data/BasePlace.h"
#include "data/FollowedWork.h"
#include "data/LongReading.h"
#include "data/PostgresDialect.h"
#include "data/PostgresErrors.h"
#include "data/Transaction.h"
#include "support/BaseFixture.h"
#include "values/Progress.h"

#include <optional>

namespace {

/// What is wrong when the work raises a failure of the server; nothing when it passes.
template <typename Trabajo>
std::optional<FallaDeServidor> FallaDe(const Trabajo& trabajo) {
    try {
        trabajo();
    } catch (const ErrorDeServidor& error) {
        return error.Falla();
    }
    return std::nullopt;
}

class ServerTest : public BaseDePrueba {
  protected:
    void AgregaUsuario(const QString& usuario) { m_base->Ejecuta(u"INSERT INTO CLAVES VALUES (?, '0')"_s, {usuario}); }
    [[nodiscard]] QString Usuarios() const { return Lista(u"SELECT Usuario FROM CLAVES ORDER BY Usuario"_s); }
};

TEST_F(ServerTest, NamesEachWrongSetting) {
    const QString servidor = qEnvironmentVariable("XA518_TEST_SERVER");
    const auto vacia = BaseEnServidor::Vacia();
    const auto ajena = BaseEnServidor::Vacia();
    const std::unique_ptr<PGconn, decltype(&PQfinish)> otro(PQconnectdb(ajena->Texto().toUtf8().constData()), PQfinish);
    PQclear(PQexec(otro.get(), "CREATE TABLE cosa (a text)"));
    const std::pair<QString, FallaDeServidor> casos[] = {
        {u"hots=localhost dbname=x"_s, FallaDeServidor::Texto},
        {u"dbname=x"_s, FallaDeServidor::Texto},
        {m_base.Ruta() + u" password=secreta"_s, FallaDeServidor::Texto},
        {u"host=no.hay.invalid dbname=x connect_timeout=2"_s, FallaDeServidor::Equipo},
        {m_base.Ruta() + u" port=1"_s, FallaDeServidor::Puerto},
        {m_base.Ruta() + u" user=nadie"_s, FallaDeServidor::Cuenta},
        {servidor + u" dbname=nohay"_s, FallaDeServidor::SinBase},
        {vacia->Texto(), FallaDeServidor::SinBase},
        {ajena->Texto(), FallaDeServidor::BaseAjena},
    };
    for (const auto& [texto, falla] : casos)
        EXPECT_EQ(FallaDe([&, ruta = texto] { (void)Base::Abre(ruta); }), falla) << qPrintable(texto);
    EXPECT_EQ(FallaDe([&] { (void)Base::AbreOCrea(ajena->Texto()); }), FallaDeServidor::BaseAjena);
    EXPECT_EQ(Base::AbreOCrea(vacia->Texto())->VersionDelEsquema(), 0);
    EXPECT_EQ(NumeroDe([&] { (void)Base::Crea(vacia->Texto()); }), 57); // never over an existing one
}

TEST_F(ServerTest, ALostConnectionIsToldAndTheNextActionConnectsAgain) {
    AgregaUsuario(u"ANA"_s);
    CortaLaConexion(*m_base);
    EXPECT_EQ(FallaDe([&] { AgregaUsuario(u"EVA"_s); }), FallaDeServidor::Perdida);
    EXPECT_EQ(Usuarios(), u"ANA"_s);
    AgregaUsuario(u"EVA"_s); // prepared anew
    EXPECT_EQ(FallaDe([&] {
                  Transaccion transaccion = m_base->Comienza();
                  AgregaUsuario(u"IDA"_s);
                  CortaLaConexion(*m_base);
                  EXPECT_EQ(FallaDe([&] { AgregaUsuario(u"LEA"_s); }), FallaDeServidor::Perdida);
                  AgregaUsuario(u"MIA"_s); // not on another connection either, outside of the transaction
              }),
              FallaDeServidor::Perdida);
    EXPECT_EQ(Usuarios(), u"ANA|EVA"_s);
    EXPECT_EQ(FallaDe([&] {
                  Transaccion transaccion = m_base->Comienza();
                  AgregaUsuario(u"IDA"_s);
                  CortaLaConexion(*m_base);
                  transaccion.Confirma();
              }),
              FallaDeServidor::Perdida);
    EXPECT_EQ(Usuarios(), u"ANA|EVA"_s);
}

TEST_F(ServerTest, ALossTellsNoMoreThanIsKnown) {
    const auto dicho = [](const auto& trabajo) {
        try {
            trabajo();
        } catch (const ErrorDeServidor& error) {
            return error.Texto();
        }
        return QString();
    };
    CortaLaConexion(*m_base);
    EXPECT_TRUE(dicho([&] { (void)m_base->Lee(u"SELECT * FROM CLAVES"_s); }).contains(u"está a salvo. Revise"_s));
    CortaLaConexion(*m_base);
    EXPECT_TRUE(dicho([&] { AgregaUsuario(u"ANA"_s); }).contains(u"no se sabe si lo último quedó grabado"_s));
    CortaLaConexion(*m_base);
    EXPECT_TRUE(dicho([&] { (void)m_base->Comienza(); }).contains(u"no quedó grabado"_s));
    Transaccion transaccion = m_base->Comienza();
    CortaLaConexion(*m_base);
    EXPECT_TRUE(dicho([&] { (void)m_base->Lee(u"SELECT * FROM CLAVES"_s); }).contains(u"no quedó grabado"_s));
}

/// The engine would undo it without a word.
TEST_F(ServerTest, ATransactionWithAFailureIsNotConfirmed) {
    AgregaUsuario(u"ANA"_s);
    Transaccion transaccion = m_base->Comienza();
    AgregaUsuario(u"EVA"_s);
    EXPECT_EQ(NumeroDe([&] { AgregaUsuario(u"ana"_s); }), 3022);
    EXPECT_EQ(NumeroDe([&] { transaccion.Confirma(); }), 3146);
}

TEST_F(ServerTest, WritersWhoGiveNumbersTakeTurns) {
    const auto otra = Base::Abre(m_base.Ruta());
    const Transaccion turno = m_base->Comienza();
    (void)otra->Comienza(Turno::Propio);
    otra->Ejecuta(u"SET lock_timeout = '50ms'"_s);
    EXPECT_EQ(NumeroDe([&] { (void)otra->Comienza(); }), 3051);
    EXPECT_EQ(otra->VersionDelEsquema(), 0); // and goes on
}

TEST_F(ServerTest, SeveralLongReadingsComeByPortionsSideBySide) {
    m_base->Ejecuta(u"INSERT INTO PARAM SELECT '1', i::text, 'x', i FROM generate_series(1, 5000) AS i"_s);
    const QString sql = u"SELECT correl_param FROM PARAM WHERE Numero = ? ORDER BY correl_param"_s;
    const LecturaLarga larga(*m_base);
    Registros una = m_base->Lee(sql, {u"1"_s});
    Registros otra = m_base->Lee(sql + u" DESC"_s, {u"1"_s});
    int filas = 0;
    while (una.Siguiente() && otra.Siguiente())
        ASSERT_EQ(una.Entero(0) + otra.Entero(0), 5001) << ++filas;
    EXPECT_FALSE(otra.Siguiente());
    EXPECT_EQ(NumeroDe([&] { (void)m_base->Lee(u"SELECT nohay FROM PARAM"_s); }), 3061);
}

class Impaciente final : public Avance {
  public:
    void Va(qint64 /*hecho*/, qint64 /*total*/) override { throw Detenido(); }
};

TEST_F(ServerTest, AStatementStopsInTheMiddle) {
    Impaciente impaciente;
    {
        const TrabajoSeguido seguido(*m_base, impaciente, 1);
        Transaccion transaccion = m_base->Comienza();
        EXPECT_THROW(m_base->Ejecuta(u"INSERT INTO CLAVES SELECT 'ANA', pg_sleep(60)::text"_s), Detenido);
    }
    EXPECT_EQ(Usuarios(), QString());
}

TEST(WorkSchema, TakesPlainNamesAlone) {
    EXPECT_EQ(EsquemaDeTrabajo::De(u"puesto_2")->Nombre(), u"puesto_2"_s);
    for (const QString& malo :
         {u""_s, u"2puesto"_s, u"Puesto"_s, u"a b"_s, u"a\"b"_s, u"a;drop"_s, u"ñ"_s, QString(49, u'a')})
        EXPECT_FALSE(EsquemaDeTrabajo::De(malo)) << qPrintable(malo);
}

TEST(PostgresDialect, TurnsOrdersAndTablesIntoTheServers) {
    const std::pair<QString, QString> casos[] = {
        {u"SELECT a FROM t ORDER BY a, B.b DESC, 1, mid(a,1,2)"_s,
         u"SELECT a FROM t ORDER BY en_orden(a) NULLS FIRST, en_orden(B.b) DESC NULLS LAST, 1 NULLS FIRST,"
         " mid(a,1,2) NULLS FIRST"_s},
        {u"SELECT * FROM (SELECT a FROM t order by a asc) AS q LIMIT ? OFFSET ?"_s,
         u"SELECT * FROM (SELECT a FROM t order by en_orden(a) asc NULLS FIRST) AS q LIMIT ? OFFSET ?"_s},
        {u"SELECT 'order by a' FROM t GROUP BY a, b ORDER BY a"_s,
         u"SELECT 'order by a' FROM t GROUP BY en_orden(a), en_orden(b) ORDER BY en_orden(a) NULLS FIRST"_s},
        {u"delete * from [Mi Tabla]"_s, u"delete   from \"mi tabla\""_s},
        {u"CREATE TABLE T (a TEXT COLLATE NOCASE NOT NULL PRIMARY KEY, n INTEGER, UNIQUE (n, a)) STRICT;"_s,
         u"CREATE TABLE T (a TEXT COLLATE \"C\" NOT NULL, n INTEGER, alta bigint GENERATED BY DEFAULT AS IDENTITY);\n"
         "CREATE UNIQUE INDEX ON T (lower(a COLLATE \"C\") NULLS FIRST);\n"
         "CREATE UNIQUE INDEX ON T (n NULLS FIRST, lower(a COLLATE \"C\") NULLS FIRST);\n"_s},
    };
    for (const auto& [sql, esperado] : casos)
        EXPECT_EQ(TraduceAPostgres(sql), esperado);
}

/// Otherwise every look-up of a client would go through the whole table.
TEST_F(ServerTest, FindsRowsByTheirKey) {
    m_base->Ejecuta(u"INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per) SELECT 6, i::text FROM"
                    " generate_series(1, 20000) AS i"_s);
    m_base->Ejecuta(u"ANALYZE TMPF518PCAB"_s);
    const QString plan = Lista(u"EXPLAIN SELECT * FROM TMPF518PCAB WHERE tip_doc_per = 6 AND num_doc_per = 'a77'"_s);
    EXPECT_TRUE(plan.contains(u"Index"_s)) << qPrintable(plan);
    const QString orden = Lista(u"EXPLAIN SELECT * FROM TMPF518PCAB ORDER BY tip_doc_per, num_doc_per LIMIT 5"_s);
    EXPECT_TRUE(orden.contains(u"Index Scan"_s)) << qPrintable(orden);
}

} // namespace
