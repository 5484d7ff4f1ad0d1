#include "DataFixture.h"

#include "data/LongReading.h"
#include "data/Transaction.h"

#include <sqlite3.h>

#include <stdexcept>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class BaseTest : public BaseDePrueba {
  protected:
    BaseTest() {
        m_base->Ejecuta(u"CREATE TABLE CLIENTE (numero TEXT PRIMARY KEY, serie TEXT NOT NULL DEFAULT '', nombre TEXT, "
                        "orden INTEGER, UNIQUE (serie, nombre))"_s);
    }
    void Agrega(const QString& numero, const QVariant& nombre = {}) {
        m_base->Ejecuta(u"INSERT INTO CLIENTE (numero, nombre) VALUES (?,?)"_s, {numero, nombre});
    }
    [[nodiscard]] QString Numeros() { return Lista(u"SELECT numero FROM CLIENTE ORDER BY numero"_s); }
};

TEST_F(BaseTest, NumbersTheErrorsAsTheMessagesKnowThem) {
    Agrega(u"1"_s, u"UNO"_s);
    const std::pair<QString, int> casos[] = {
        {u"INSERT INTO CLIENTE (numero) VALUES ('1')"_s, 3022},
        {u"INSERT INTO CLIENTE (numero, nombre) VALUES ('2','UNO')"_s, 3022},
        {u"INSERT INTO CLIENTE (numero, serie) VALUES ('2', NULL)"_s, SQLITE_CONSTRAINT_NOTNULL},
        {u"SELECT * FROM NOHAY"_s, 3011},
        {u"DELETE * FROM NOHAY"_s, 3011},
        {u"SELECT nohay FROM CLIENTE"_s, 3061},
        {u"INSERT INTO CLIENTE (nohay) VALUES (1)"_s, 3061},
        {u"SELEC 1"_s, SQLITE_ERROR},
    };
    for (const auto& [sql, numero] : casos)
        EXPECT_EQ(NumeroDe([&, consulta = sql] { m_base->Ejecuta(consulta); }), numero) << qPrintable(sql);
    Agrega(u"2"_s); // a statement goes on after it failed
    EXPECT_EQ(Numeros(), u"1|2"_s);
    EXPECT_EQ(NumeroDe([&] { (void)m_base->Lee(u"SELECT numero FROM CLIENTE"_s).Columna(u"nohay"); }), 3061);
    EXPECT_EQ(NumeroDe([&] { (void)m_base->Describe(u"NOHAY"_s); }), 3011);
    EXPECT_EQ(NumeroDe([&] { Registro(m_base->Describe(u"CLIENTE"_s)).Pon(u"nohay", 1); }), 3061);
}

TEST_F(BaseTest, KeepsValuesApartFromTheStatement) {
    for (const QString& texto : u"O'Higgins \"&\" ñandú|x'; DROP TABLE CLIENTE; --|?|%1 [a] * |"_s.split(u'|')) {
        Agrega(texto, texto);
        EXPECT_EQ(Lista(u"SELECT nombre FROM CLIENTE WHERE nombre=?"_s, {texto}), texto);
    }
}

TEST_F(BaseTest, StoresNullOnlyForAValueThatIsMissing) {
    Agrega(u"1"_s, QVariant());
    Agrega(u"2"_s, u""_s);
    m_base->Ejecuta(u"INSERT INTO CLIENTE (numero, serie, nombre) VALUES ('3', '1', ?)"_s, {QString()});
    EXPECT_EQ(Lista(u"SELECT numero FROM CLIENTE WHERE nombre IS NULL"_s), u"1"_s);
    EXPECT_EQ(Lista(u"SELECT numero FROM CLIENTE WHERE nombre = ?"_s, {QString()}), u"2|3"_s);
    {
        Registros fila = m_base->Lee(u"SELECT nombre FROM CLIENTE WHERE numero='1'"_s);
        ASSERT_TRUE(fila.Siguiente());
        EXPECT_TRUE(fila.EsNulo(0));
        Agrega(u"4"_s, fila.Valor(0)); // a null that was read is copied as null
    }
    EXPECT_EQ(Lista(u"SELECT numero FROM CLIENTE WHERE nombre IS NULL"_s), u"1|4"_s);
}

TEST_F(BaseTest, ReadsTheSameStatementInsideItself) {
    for (const QString& numero : {u"1"_s, u"2"_s, u"3"_s})
        Agrega(numero, u"N"_s + numero);
    const QString sql = u"SELECT numero FROM CLIENTE WHERE numero > ? ORDER BY numero"_s;
    QStringList vistos;
    for (int vuelta = 0; vuelta < 2; ++vuelta) { // the second time with statements that were used before
        Registros afuera = m_base->Lee(sql, {u"0"_s});
        while (afuera.Siguiente()) {
            vistos.append(afuera.Texto(0));
            Registros adentro = m_base->Lee(sql, {afuera.Texto(0)});
            while (adentro.Siguiente())
                vistos.append(adentro.Texto(0));
        }
    }
    const QString una = u"1 2 3 2 3 3"_s;
    EXPECT_EQ(vistos.join(u' '), una + u' ' + una);
}

TEST_F(BaseTest, DescribesAndAddsWholeRowsInTheTablesOrder) {
    Registro fila(m_base->Describe(u"CLIENTE"_s));
    fila.Pon(u"Orden", 5).Pon(u"numero", u"9"_s).Pon(u"serie", u"A"_s);
    m_base->Agrega(fila);
    EXPECT_EQ(Lista(u"SELECT numero & '/' & serie & '/' & orden & '/' & nombre FROM CLIENTE"_s), u"9/A/5/"_s);
    EXPECT_EQ(NumeroDe([&] { m_base->Agrega(fila); }), 3022);
}

TEST_F(BaseTest, UndoesWhatIsNotConfirmed) {
    EXPECT_THROW(
        {
            Transaccion transaccion = m_base->Comienza();
            Agrega(u"2"_s);
            throw std::runtime_error("halfway");
        },
        std::runtime_error);
    EXPECT_EQ(Numeros(), u""_s);
    {
        Transaccion transaccion = m_base->Comienza();
        Agrega(u"3"_s);
        Transaccion movida = std::move(transaccion);
        movida.Confirma();
    }
    EXPECT_EQ(Numeros(), u"3"_s);
    EXPECT_EQ(NumeroDe([&] { // a failed statement undoes itself only
                  Transaccion transaccion = m_base->Comienza();
                  Agrega(u"4"_s);
                  EXPECT_EQ(NumeroDe([&] { Agrega(u"3"_s); }), 3022);
                  transaccion.Confirma();
              }),
              0);
    EXPECT_EQ(Numeros(), u"3|4"_s);
}

/// What a report orders mustn't fill the memory, and an import after it mustn't be slow.
TEST_F(BaseTest, TakesLittleMemoryForALongReadingAndAllOfItAfterwards) {
    const QString memoria = u"SELECT cache_size < -10000 FROM pragma_cache_size"_s;
    {
        const LecturaLarga lectura(*m_base);
        EXPECT_EQ(Lista(memoria), u"0"_s);
    }
    EXPECT_EQ(Lista(memoria), u"1"_s);
}

/// Another program of the family that holds the file for longer than the short wait.
auto OtroPrograma(const QString& ruta, const char* sql) {
    sqlite3* conexion = nullptr;
    sqlite3_open(ruta.toUtf8().constData(), &conexion);
    EXPECT_EQ(sqlite3_exec(conexion, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    return std::unique_ptr<sqlite3, int (*)(sqlite3*)>(conexion, sqlite3_close);
}

TEST_F(BaseTest, SaysThatItIsLockedAndWorksAgainAfterwards) {
    {
        const auto otro = OtroPrograma(m_base->Ruta(), "BEGIN EXCLUSIVE");
        EXPECT_EQ(NumeroDe([&] { (void)Base::Abre(m_base->Ruta()); }), 3051);
        EXPECT_EQ(NumeroDe([&] { Agrega(u"1"_s); }), 3051);
        EXPECT_EQ(NumeroDe([&] { (void)m_base->Comienza(); }), 3051);
        EXPECT_EQ(NumeroDe([&] { (void)m_base->Describe(u"CLIENTE"_s); }), 3051);
    }
    EXPECT_EQ(m_base->Describe(u"CLIENTE"_s).columnas.size(), 4);
    Agrega(u"1"_s);
    {
        const auto otro = OtroPrograma(m_base->Ruta(), "BEGIN IMMEDIATE"); // writing, while others may read
        EXPECT_EQ(Numeros(), u"1"_s);
        EXPECT_EQ(NumeroDe([&] { (void)m_base->Comienza(); }), 3051);
    }
    {
        const auto otro = OtroPrograma(m_base->Ruta(), "BEGIN; SELECT * FROM CLIENTE");
        EXPECT_EQ(NumeroDe([&] {
                      Transaccion transaccion = m_base->Comienza();
                      Agrega(u"2"_s);
                      transaccion.Confirma();
                  }),
                  3051);
    }
    EXPECT_EQ(Numeros(), u"1"_s); // a commit that others kept from happening is undone, not left half way
}

} // namespace
} // namespace xa518
