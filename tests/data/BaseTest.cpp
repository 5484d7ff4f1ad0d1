#include "support/BaseFixture.h"
#include "support/PrivateFile.h"

#include "data/LongList.h"
#include "data/LongReading.h"
#include "data/NewRows.h"
#include "data/Transaction.h"
#include "data/Workgroup.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

/// What no message knows keeps the file engine's own number; of a server all of it has one.
const int kNuloNoAdmitido = HayServidorDePrueba() ? 3146 : SQLITE_CONSTRAINT_NOTNULL;

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
        {u"INSERT INTO CLIENTE (numero, serie) VALUES ('2', NULL)"_s, kNuloNoAdmitido},
        {u"SELECT * FROM NOHAY"_s, 3011},
        {u"DELETE * FROM NOHAY"_s, 3011},
        {u"SELECT nohay FROM CLIENTE"_s, 3061},
        {u"INSERT INTO CLIENTE (nohay) VALUES (1)"_s, 3061},
        {u"SELEC 1"_s, HayServidorDePrueba() ? 3146 : SQLITE_ERROR},
    };
    for (const auto& [sql, numero] : casos)
        EXPECT_EQ(NumeroDe([&, consulta = sql] { m_base->Ejecuta(consulta); }), numero) << qPrintable(sql);
    try { // the person reads Spanish, the engine's own words are kept beside it
        m_base->Ejecuta(u"SELECT * FROM NOHAY"_s);
    } catch (const ErrorBase& error) {
        EXPECT_EQ(error.Texto(), u"A la base de datos le falta una tabla."_s);
        EXPECT_TRUE(error.Detalle().contains(u"nohay"_s, Qt::CaseInsensitive)) << qPrintable(error.Detalle());
    }
    Agrega(u"2"_s); // a statement goes on after it failed
    EXPECT_EQ(Numeros(), u"1|2"_s);
    EXPECT_EQ(NumeroDe([&] { (void)m_base->Lee(u"SELECT numero FROM CLIENTE"_s).Columna(u"nohay"); }), 3061);
    EXPECT_EQ(NumeroDe([&] { (void)m_base->Describe(u"NOHAY"_s); }), 3011);
    EXPECT_EQ(NumeroDe([&] { Registro(m_base->Describe(u"CLIENTE"_s)).Pon(u"nohay", 1); }), 3061);
    EXPECT_EQ(NumeroDe([&] { Registro(m_base->Describe(u"CLIENTE"_s)).Pon(u"Numero", 1); }), 0);
}

/// They are entered in their own order, whatever order they are written in.
TEST_F(BaseTest, AddsManyRowsAndTellsWhichOnesStandThere) {
    Agrega(u"5"_s);
    FilasNuevas filas(m_base->Describe(u"CLIENTE"_s), {u"orden"_s, u"numero"_s, u"nombre"_s});
    filas.Pon(-7).Pon(u"9").PonNulo().CierraFila();
    filas.Pon(2).Pon(u"5").Pon(u"dos").CierraFila();
    filas.PonNulo().Pon(u"1").Pon(u"\uFEFFñ'\"").CierraFila();
    filas.Pon(4).Pon(u"3").Pon(u"").CierraFila();
    EXPECT_NE(NumeroDe([&] { (void)m_base->AgregaFilas(filas); }), 0); // without a transaction
    EXPECT_EQ(Numeros(), u"5"_s);
    Transaccion transaccion = m_base->Comienza();
    EXPECT_EQ(m_base->AgregaFilas(filas), QList<size_t>{1});
    filas.Vacia();
    filas.Pon(5).Pon(u"0").Pon(u"cinco").CierraFila();
    EXPECT_EQ(m_base->AgregaFilas(filas), QList<size_t>());
    transaccion.Confirma();
    EXPECT_EQ(
        m_base
            .Filas(u"SELECT numero, serie, nombre, orden FROM CLIENTE ORDER BY "_s + m_base->NumeroDeFila(u"CLIENTE"_s))
            .join(u'/'),
        u"5||<null>|<null>/9||<null>|-7/1||ñ'\"|<null>/3|||4/0||cinco|5"_s);
}

TEST_F(BaseTest, ARowThatATableCantTakeKeepsOutTheOthers) {
    FilasNuevas filas(m_base->Describe(u"CLIENTE"_s), {u"numero"_s, u"serie"_s});
    filas.Pon(u"1").Pon(u"").CierraFila();
    filas.Pon(u"2").PonNulo().CierraFila();
    {
        Transaccion transaccion = m_base->Comienza();
        EXPECT_EQ(NumeroDe([&] { (void)m_base->AgregaFilas(filas); }), kNuloNoAdmitido);
    }
    EXPECT_EQ(Numeros(), QString());
}

TEST_F(BaseTest, TheVersionTellsOfOtherConnectionsAlone) {
    const QString sql = u"INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per) VALUES (6, ?)"_s;
    const qint64 antes = m_base->Version();
    m_base->Ejecuta(sql, {u"1"_s});
    EXPECT_EQ(m_base->Version(), antes);
    const auto otra = Base::Abre(m_base.Ruta());
    otra->Ejecuta(sql, {u"2"_s});
    const qint64 deOtra = m_base->Version();
    EXPECT_NE(deOtra, antes);
    m_base->Ejecuta(sql, {u"3"_s});
    EXPECT_EQ(m_base->Version(), deOtra);
    otra->Ejecuta(sql, {u"4"_s});
    EXPECT_NE(m_base->Version(), deOtra);
}

TEST_F(BaseTest, StoresNullOnlyForAValueThatIsMissing) {
    Agrega(u"1"_s, QVariant());
    Agrega(u"2"_s, u""_s);
    m_base->Ejecuta(u"INSERT INTO CLIENTE (numero, serie, nombre) VALUES ('3', '1', ?)"_s, {QString()});
    EXPECT_EQ(Lista(u"SELECT numero FROM CLIENTE WHERE nombre = ?"_s, {QString()}), u"2|3"_s);
    {
        Registros fila = m_base->Lee(u"SELECT nombre FROM CLIENTE WHERE nombre IS NULL"_s);
        ASSERT_TRUE(fila.Siguiente());
        Agrega(u"4"_s, fila.Valor(0)); // a null that was read is copied as null
    }
    EXPECT_EQ(Lista(u"SELECT numero FROM CLIENTE WHERE nombre IS NULL"_s), u"1|4"_s);
}

/// A place without a value would run with the one of the call before.
TEST_F(BaseTest, RefusesAnotherNumberOfValuesThanAStatementTakes) {
    const QString sql = u"SELECT numero FROM CLIENTE WHERE numero=? AND nombre<>'?' AND serie<>?"_s;
    for (const QVariantList& valores : {QVariantList{u"1"_s}, {u"1"_s, u"2"_s}, {u"1"_s}, {u"1"_s, u"2"_s, u"3"_s}}) {
        try {
            (void)m_base->Lee(sql, valores);
            EXPECT_EQ(valores.size(), 2);
        } catch (const ErrorBase& error) {
            EXPECT_NE(valores.size(), 2);
            EXPECT_TRUE(error.Texto().endsWith(sql)) << qPrintable(error.Texto());
        }
    }
}

TEST_F(BaseTest, ReadsTheSameStatementInsideItself) {
    for (const QString& numero : {u"1"_s, u"2"_s, u"3"_s})
        Agrega(numero, u"N"_s + numero);
    const QString sql = u"SELECT numero FROM CLIENTE WHERE numero > ? ORDER BY numero"_s;
    for (int vuelta = 0; vuelta < 2; ++vuelta) { // the second time with statements that were used before
        QString vistos;
        for (Registros afuera = m_base->Lee(sql, {u"0"_s}); afuera.Siguiente();)
            vistos += afuera.Texto(0) + u": "_s + Lista(sql, {afuera.Texto(0)}) + u". "_s;
        EXPECT_EQ(vistos, u"1: 2|3. 2: 3. 3: . "_s);
    }
}

/// Rows that a join gives twice, an order that their entry isn't, more of them than one statement asks for, one that
/// goes.
TEST_F(BaseTest, FindsAnyRowsOfALongListAsItWasRead) {
    m_base->Ejecuta(u"CREATE TABLE LETRA (letra TEXT)"_s);
    m_base->Ejecuta(u"CREATE TABLE CIFRA (cifra INTEGER)"_s);
    for (const QString& letra : {u"a"_s, u"b"_s, u"c"_s})
        m_base->Ejecuta(u"INSERT INTO LETRA VALUES (?)"_s, {letra});
    for (int cifra = 1; cifra <= 300; ++cifra)
        m_base->Ejecuta(u"INSERT INTO CIFRA VALUES (?)"_s, {cifra});
    const auto junta = [](const std::vector<QStringList>& filas) {
        QStringList textos;
        for (const QStringList& fila : filas)
            textos.append(fila.join(QString()));
        return textos.join(u'|');
    };
    const ListaLarga pares(*m_base, {.columnas = u"A.letra, B.cifra"_s,
                                     .desde = u"FROM LETRA AS A, CIFRA AS B"_s,
                                     .tablas = {u"A"_s, u"B"_s},
                                     .vinculo = u"B.cifra > 0"_s,
                                     .filtro = u"A.letra <> ?"_s,
                                     .orden = u"ORDER BY B.cifra DESC, A.letra"_s,
                                     .valores = {u"b"_s}});
    ASSERT_EQ(pares.Filas(), 600);
    EXPECT_EQ(junta(pares.Lee(297, 4)), u"c152|a151|c151|a150"_s);
    EXPECT_EQ(junta(pares.Lee(598, 500)), u"a1|c1"_s);
    EXPECT_EQ(junta(pares.Lee(0, 600)).section(u'|', 499, 501), u"c51|a50|c50"_s);
    m_base->Ejecuta(u"DELETE * FROM LETRA WHERE letra = 'a'"_s);
    EXPECT_EQ(junta(pares.Lee(598, 2)), u"|c1"_s);

    const ListaLarga entrada(*m_base, {.columnas = u"letra"_s, .desde = u"FROM LETRA"_s, .tablas = {u"LETRA"_s}});
    EXPECT_EQ(junta(entrada.Lee(0, 500)), u"b|c"_s);
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
}

TEST_F(BaseTest, AFailedStatementUndoesItselfOnly) {
    Agrega(u"3"_s);
    EXPECT_EQ(NumeroDe([&] {
                  Transaccion transaccion = m_base->Comienza();
                  Agrega(u"4"_s);
                  EXPECT_EQ(NumeroDe([&] { Agrega(u"3"_s); }), 3022);
                  transaccion.Confirma();
              }),
              0);
    EXPECT_EQ(Numeros(), u"3|4"_s);
}

/// A shared file must stay whole over a power cut; what a report orders mustn't fill the memory, nor an import after it
/// be slow.
TEST_F(BaseTest, SetsTheEnginesRules) {
    EXPECT_EQ(Lista(u"PRAGMA journal_mode"_s) + Lista(u"PRAGMA synchronous"_s), u"delete3"_s);
    const QString memoria = u"SELECT cache_size < -20000 FROM pragma_cache_size"_s;
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

/// Letter by letter: A to Z as a to z, and nothing else as another thing, whatever the language of the system.
TEST_F(BaseTest, OrdersAndComparesAwkwardNamesByTheirCodes) {
    const QStringList nombres{u"Ñandú"_s,     u"ñandú"_s,      u"NANDU"_s,   u"nandu"_s,   u"Ángel"_s,     u"ángel"_s,
                              u"Angel"_s,     u"ANGEL"_s,      u"Zúñiga"_s,  u"zuñiga"_s,  u"ÜBER"_s,      u"über"_s,
                              u"straße"_s,    u"STRASSE"_s,    u"İzmir"_s,   u"izmir"_s,   u"ızmir"_s,     u"_guion"_s,
                              u"[corchete"_s, u"~tilde"_s,     u" blanco"_s, u"blanco"_s,  u"O'Higgins"_s, u"o\\h"_s,
                              u"\"cita\""_s,  u"10"_s,         u"9"_s,       u"ＡＢＣ"_s,  u"ａｂｃ"_s,    u"日本"_s,
                              u"€uro"_s,      u"\U0001F600"_s, u"\uFB01n"_s, u"e\u0301"_s, u"é"_s,         u"É"_s,
                              u""_s,          u"Z"_s,          u"a"_s,       u"A b"_s,     u"a-b"_s,       u"A.b"_s,
                              u"L1"_s,        u"l1"_s,         u"K"_s,       u"k"_s,       u"\u212A"_s};
    const auto clave = [](const QString& nombre) {
        QByteArray bytes = nombre.toUtf8();
        for (char& c : bytes)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        return bytes;
    };
    m_base->Ejecuta(u"CREATE TABLE NOMBRE (lugar INTEGER, nombre TEXT COLLATE NOCASE)"_s);
    for (int i = 0; i < nombres.size(); ++i)
        m_base->Ejecuta(u"INSERT INTO NOMBRE VALUES (?, ?)"_s, {i, nombres[i]});
    m_base->Ejecuta(u"INSERT INTO NOMBRE VALUES (-1, NULL)"_s);
    QStringList enOrden = nombres;
    std::stable_sort(enOrden.begin(), enOrden.end(),
                     [&](const QString& a, const QString& b) { return clave(a) < clave(b); });
    EXPECT_EQ(m_base.Filas(u"SELECT nombre FROM NOMBRE ORDER BY nombre, lugar"_s), QStringList{u"<null>"_s} + enOrden);
    const QString alReves = m_base.Filas(u"SELECT nombre FROM NOMBRE ORDER BY nombre DESC, lugar"_s).constLast();
    EXPECT_EQ(alReves, u"<null>"_s);
    for (const QString& nombre : nombres) {
        const auto iguales = std::count_if(nombres.cbegin(), nombres.cend(),
                                           [&](const QString& otro) { return clave(otro) == clave(nombre); });
        const auto menores = std::count_if(nombres.cbegin(), nombres.cend(),
                                           [&](const QString& otro) { return clave(otro) < clave(nombre); });
        EXPECT_EQ(Lista(u"SELECT count(*) FROM NOMBRE WHERE nombre = ?"_s, {nombre}), QString::number(iguales))
            << qPrintable(nombre);
        EXPECT_EQ(Lista(u"SELECT count(*) FROM NOMBRE WHERE nombre < ?"_s, {nombre}), QString::number(menores))
            << qPrintable(nombre);
    }
}

class DialectTest : public BaseDePrueba {
  protected:
    DialectTest() {
        for (const QString& sql : {u"CREATE TABLE A (clave TEXT, periodo TEXT, monto TEXT, [mi nombre] TEXT)"_s,
                                   u"CREATE TABLE B (clave TEXT, nombre TEXT)"_s,
                                   u"INSERT INTO A VALUES ('1','202405','0.1','uno'),('2','202406','0.2',NULL)"_s,
                                   u"INSERT INTO B VALUES ('1','Ñandú')"_s})
            m_base->Ejecuta(sql);
    }
};

TEST_F(DialectTest, RunsTheSystemsWordsOnTheEngine) {
    const std::pair<QString, QString> casos[] = {
        {u"SELECT mid('abcdef',2,3)"_s, u"bcd"_s},
        {u"SELECT mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as P FROM A ORDER BY 1"_s, u"052024|062024"_s},
        {u"SELECT mid(periodo,5,2) & '/' & mid(periodo,1,4) & [mi nombre] FROM A"_s, u"05/2024uno|06/2024"_s},
        {u"SELECT ('a' & null) & ('b' & mid('xc',2,1)) & 1"_s, u"abc1"_s},
        {u"SELECT 'a' & null & 'b'"_s, u"ab"_s},
        {u"SELECT left(A.clave & A.periodo, 3) FROM A"_s, u"120|220"_s},
        {u"SELECT left(null,3)"_s, u"<null>"_s},
        {u"SELECT len('ñandú')"_s, u"5"_s},
        {u"SELECT B.nombre FROM A LEFT JOIN B ON A.clave=B.clave ORDER BY A.clave"_s, u"Ñandú|<null>"_s},
        {u"SELECT 'it''s mid(1) & [x] left(' & \"clave\" FROM A WHERE clave='1'"_s, u"it's mid(1) & [x] left(1"_s},
        {u"SELECT format(' 7','00')"_s, u"07"_s},
        {u"SELECT format(null,'00')"_s, u""_s},
        {u"SELECT val('12.5 kg') & '/' & val('x') & '/' & val('(3)') & '/' & val(8)"_s, u"12.5/0/0/8"_s},
    };
    for (const auto& [sql, esperado] : casos)
        EXPECT_EQ(Lista(sql), esperado) << qPrintable(sql);
    EXPECT_EQ(m_base->Ejecuta(u" DELETE * FROM A WHERE clave='1'"_s), 1);
    EXPECT_EQ(m_base->Ejecuta(u"delete  *  from A WHERE clave='1'"_s), 0);
}

/// In binary 0.1 + 0.2 isn't 0.3, a column of cents drifts, and of many digits the last are lost.
TEST_F(DialectTest, SumsDecimalsExactlyAndRaisesWhenANumberDoesNotFit) {
    EXPECT_EQ(Lista(u"SELECT sum(monto * 1) FROM A"_s), u"0.3"_s);
    EXPECT_EQ(Lista(u"SELECT sum(monto) FROM A WHERE clave='9'"_s), u"<null>"_s);
    m_base->Ejecuta(u"DELETE * FROM A"_s);
    m_base->Ejecuta(u"WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i+1 FROM n WHERE i<1000) "
                    "INSERT INTO A(monto) SELECT '99999999999.99' FROM n"_s);
    m_base->Ejecuta(u"INSERT INTO A(monto) VALUES (NULL), ('-0.01'), (''), ('abc')"_s);
    const std::pair<QString, QString> casos[] = {
        {{}, u"99999999999989.99"_s},
        {u"0.4999999999999"_s, u"99999999999990.4899999999999"_s},
        {u"-9007199254740993.01"_s, u"-8907199254741002.5200000000001"_s},
    };
    for (const auto& [monto, suma] : casos) {
        if (!monto.isEmpty())
            m_base->Ejecuta(u"INSERT INTO A(monto) VALUES (?)"_s, {monto});
        for (const QString& sql : {u"SELECT SUM(monto*1) FROM A"_s, u"SELECT sum( A.monto * 1 ) FROM A"_s,
                                   u"SELECT sum(VAL(monto)) FROM A"_s})
            EXPECT_EQ(Lista(sql), suma) << qPrintable(sql);
    }
    m_base->Ejecuta(u"INSERT INTO A(monto) VALUES (?), (?)"_s, {QString(36, u'9'), u"1"_s});
    EXPECT_EQ(NumeroDe([&] { (void)Lista(u"SELECT sum(monto * 1) FROM A"_s); }), 6);
}

TEST_F(DialectTest, TellsABinaryNumberAndTooManyDigits) {
    EXPECT_EQ(NumeroDe([&] { (void)Lista(u"SELECT sum(monto * 0.5) FROM A"_s); }), 5);
    EXPECT_EQ(NumeroDe([&] { (void)Lista(u"SELECT val(?)"_s, {QString(40, u'9')}); }), 6);
    EXPECT_EQ(Lista(u"SELECT val(?) > 9e29"_s, {QString(30, u'9')}), u"1"_s);
}

class OpeningTest : public BaseDePrueba {
  protected:
    [[nodiscard]] QString Ruta(const QString& nombre) const { return m_base.Carpeta() + u'/' + nombre; }
    [[nodiscard]] static int NumeroAlAbrir(const QString& ruta) {
        return NumeroDe([&] { (void)Base::Abre(ruta); });
    }
};

TEST_F(OpeningTest, TellsWhatIsWrongWithTheFile) {
    EXPECT_EQ(NumeroAlAbrir(Ruta(u"nohay.db"_s)), 3024);
    EXPECT_FALSE(QFile::exists(Ruta(u"nohay.db"_s))); // and didn't make one
    EXPECT_EQ(NumeroAlAbrir(m_base.Carpeta()), 3024);
    EXPECT_EQ(NumeroAlAbrir(u""_s), 3024);
    EscribeEn(Ruta(u"texto.db"_s), QByteArray(5000, 'x'));
    EXPECT_EQ(NumeroAlAbrir(Ruta(u"texto.db"_s)), SQLITE_NOTADB);
    EXPECT_EQ(NumeroAlAbrir(u"oracle://servidor/base"_s), 3170);
    EXPECT_EQ(NumeroDe([&] { (void)Base::Crea(m_base->Ruta()); }), 57); // never over an existing one
}

TEST_F(OpeningTest, MakesAPrivateFileUnderAnyName) {
#ifdef Q_OS_WIN // whose names hold no question mark
    const QString carpeta = Ruta(u"Año 1 100% #x 'y'"_s);
#else
    const QString carpeta = Ruta(u"Año 1 100% #x? 'y'"_s);
#endif
    ASSERT_TRUE(QDir().mkpath(carpeta));
    const QString ruta = carpeta + u"/base ñ.db"_s;
    Base::Crea(ruta)->Ejecuta(u"CREATE TABLE T (a TEXT)"_s);
    EXPECT_EQ(NumeroAlAbrir(ruta), 0);
    EXPECT_TRUE(EsPrivado(ruta));
}

/// As a folder of another machine is spelt on Windows, and as a careless path is here.
TEST_F(OpeningTest, TwoSlashesInFrontNameNoMachine) {
#ifdef Q_OS_WIN
    const QString ruta = u"\\\\localhost\\"_s + QDir::toNativeSeparators(Ruta(u"red.db"_s)).replace(u':', u'$');
#else
    const QString ruta = u'/' + Ruta(u"red.db"_s);
#endif
    Base::Crea(ruta)->Ejecuta(u"CREATE TABLE T (a TEXT)"_s);
    EXPECT_EQ(NumeroAlAbrir(ruta), 0);
}

TEST_F(OpeningTest, TheWorkgroupAdmitsItsAccountAndNoOther) {
    const QString ruta = Ruta(u"XA000.MDW"_s);
    const GrupoTrabajo grupo(ruta);
    const auto numero = [&grupo](const QString& usuario, const QString& clave) {
        return NumeroDe([&] { grupo.Verifica({usuario, clave}); });
    };
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 3028);
    grupo.Admite({u"usuario1"_s, u"clave001"_s});
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 0);
    EXPECT_EQ(numero(u"usuario1"_s, u"clave002"_s), 3029);
    EXPECT_EQ(numero(u"usuario2"_s, u"clave001"_s), 3029);
    EXPECT_TRUE(EsPrivado(ruta));
    EXPECT_FALSE(BytesDe(ruta).contains("clave001"));
    grupo.Admite({u"usuario2"_s, u"clave002"_s});
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s) + numero(u"usuario2"_s, u"clave002"_s), 0);
    EscribeEn(ruta, "{\"usuario1\": \"clave001\"} \x01 rubbish");
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 3029);
}

} // namespace
