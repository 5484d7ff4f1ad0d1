#include "DataFixture.h"

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

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

/// In binary 0.1 + 0.2 isn't 0.3, and a column of cents drifts.
TEST_F(DialectTest, SumsDecimalsExactly) {
    EXPECT_EQ(Lista(u"SELECT sum(monto * 1) FROM A"_s), u"0.3"_s);
    EXPECT_EQ(Lista(u"SELECT sum(monto) FROM A WHERE clave='9'"_s), u"<null>"_s);
    m_base->Ejecuta(u"DELETE * FROM A"_s);
    m_base->Ejecuta(u"WITH n(i) AS (VALUES (1) UNION ALL SELECT i+1 FROM n WHERE i<1000) "
                    "INSERT INTO A(monto) SELECT '99999999999.99' FROM n"_s);
    m_base->Ejecuta(u"INSERT INTO A(monto) VALUES (NULL), ('-0.01'), (''), ('abc')"_s);
    EXPECT_EQ(Lista(u"SELECT sum(val(monto)) FROM A"_s), u"99999999999989.99"_s);
    EXPECT_EQ(Lista(u"SELECT sum(monto * 1) FROM A"_s), u"99999999999989.99"_s);
}

TEST_F(DialectTest, RaisesWhenANumberDoesNotFit) {
    EXPECT_NE(NumeroDe([&] { (void)Lista(u"SELECT val(?)"_s, {QString(40, u'9')}); }), 0);
    EXPECT_EQ(Lista(u"SELECT val(?) > 9e29"_s, {QString(30, u'9')}), u"1"_s);
}

} // namespace
} // namespace xa518
