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
    const QStringList si = {u"01/01/1850"_s, u"29/02/2024"_s, u"29/02/2000"_s, u"31/12/2500"_s};
    const QStringList no = {u""_s,           u"29/02/2023"_s,  u"29/02/1900"_s, u"31/04/2024"_s,
                            u"00/01/2024"_s, u"01/13/2024"_s,  u"1/1/2024"_s,   u"01-01-2024"_s,
                            u"2024/01/01"_s, u"01/01/24"_s,    u"01/01/0000"_s, u"0a/01/2024"_s,
                            u"+1/01/2024"_s, u"01/01/2024 "_s, u"__/__/____"_s, u"01/ 1/2024"_s};
    for (const QString& texto : si)
        EXPECT_TRUE(EsFecha(texto)) << texto.toStdString();
    for (const QString& texto : no)
        EXPECT_FALSE(EsFecha(texto)) << texto.toStdString();
}

} // namespace
} // namespace xa518
