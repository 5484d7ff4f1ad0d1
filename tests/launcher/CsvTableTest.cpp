#include "launcher/CsvTable.h"
#include "values/Error.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

TEST(CsvTable, ReadsByColumnNameWhateverTheOrder) {
    const auto filas = LeeCsv(u"f"_s, "texto,codigo\n\"a, \"\"b\"\"\",1\r\nñandú , 2\n", {u"codigo"_s, u"texto"_s});
    ASSERT_EQ(filas.size(), 2);
    EXPECT_EQ(filas[0], QStringList({u"1"_s, u"a, \"b\""_s}));
    EXPECT_EQ(filas[1], QStringList({u"2"_s, u"ñandú"_s}));
}

TEST(CsvTable, RefusesAFileThatIsNotAsDescribed) {
    const QList<std::pair<QByteArray, const char*>> casos = {
        {"codigo\n1\n", "a column is missing"},
        {"codigo,texto,otra\n1,2,3\n", "a column too many"},
        {"codigo,texto\n1\n", "a short line"},
        {"codigo,texto\n1,2,3\n", "a long line"},
        {"codigo,texto\n1,\"abierta\n", "an open quote"},
        {"", "nothing at all"},
    };
    for (const auto& [contenido, falta] : casos)
        EXPECT_THROW((void)LeeCsv(u"f"_s, contenido, {u"codigo"_s, u"texto"_s}), Error) << falta;
}
