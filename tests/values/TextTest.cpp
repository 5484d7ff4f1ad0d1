#include "values/Text.h"
#include "values/Dates.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QList>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Text, UpperCaseStaysWithinWindows1252) {
    EXPECT_EQ(Mayusculas(u"ñandú gütiérrez ß µ ÿ œ?"), u"ÑANDÚ GÜTIÉRREZ ß µ Ÿ Œ?"_s);
}

/// The checksum sums these codes: the byte that the character has there, "?" for one that has none.
TEST(Text, KnowsTheCodesOfWindows1252) {
    const QString texto = u"Aáñ€Ÿ’日"_s;
    const QList<int> codigos = {65, 0xE1, 0xF1, 0x80, 0x9F, 0x92, 63};
    for (qsizetype i = 0; i < codigos.size(); ++i)
        EXPECT_EQ(CodigoWindows1252(texto[i]), codigos[i]) << i;
    for (int byte = 0; byte < 256; ++byte) {
        const char caracter = static_cast<char>(byte);
        EXPECT_EQ(CodigoWindows1252(DecodificaWindows1252({&caracter, 1})[0]), byte);
    }
    EXPECT_EQ(DecodificaWindows1252("A\xE1\xF1\x80\x9F\x92"), texto.chopped(1));
}

TEST(Text, TrimsBlanksOnlyAndCutsFromOne) {
    EXPECT_EQ(Recorta(u"  \ta b\u00a0 "), u"\ta b\u00a0"_s);
    EXPECT_EQ(Mid(u"abcdef", 5, 9), u"ef"_s);
    EXPECT_EQ(Mid(u"abcdef", 40, 1), u""_s);
}

TEST(Text, TellsUtf8FromOtherBytes) {
    EXPECT_TRUE(EsUtf8Valido("A\xC3\xB1"));
    EXPECT_FALSE(EsUtf8Valido("A\xF1o"));
    EXPECT_FALSE(EsUtf8Valido("A\xC3"));
    EXPECT_FALSE(EsUtf8Valido("\xC0\xAF")); // a slash in two bytes
}

TEST(Dates, AreRealDaysInTenCharacters) {
    for (const QString& texto : u"01/01/1850|29/02/2024|29/02/2000|31/12/2500"_s.split(u'|'))
        EXPECT_TRUE(EsFecha(texto)) << qPrintable(texto);
    for (const QString& texto : u"|29/02/2023|29/02/1900|31/04/2024|00/01/2024|01/13/2024|1/1/2024|01-01-2024|"
                                "2024/01/01|01/01/24|01/01/0000|0a/01/2024|+1/01/2024|01/01/2024 |__/__/____|"
                                "01/ 1/2024"_s.split(u'|'))
        EXPECT_FALSE(EsFecha(texto)) << qPrintable(texto);
}

} // namespace
} // namespace xa518
