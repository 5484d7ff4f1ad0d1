#include "values/Text.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QList>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(Recorta(u"  a b "), u"a b"_s);
    EXPECT_EQ(Recorta(u"\ta\u00a0"), u"\ta\u00a0"_s);
    EXPECT_EQ(Recorta(u"   "), u""_s);
}

TEST(Text, CutsFromOneAndGivesWhatThereIs) {
    EXPECT_EQ(Mid(u"abcdef", 2, 3), u"bcd"_s);
    EXPECT_EQ(Mid(u"abcdef", 5, 9), u"ef"_s);
    EXPECT_EQ(Mid(u"abcdef", 7, 1), u""_s);
    EXPECT_EQ(Mid(u"abcdef", 40, 1), u""_s);
    EXPECT_EQ(Mid(u"", 1, 1), u""_s);
}

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

TEST(Text, TellsUtf8FromOtherBytes) {
    EXPECT_TRUE(EsUtf8Valido("Pe\xC3\xB1"
                             "a"));
    EXPECT_FALSE(EsUtf8Valido("Pe\xF1"
                              "a"));
    EXPECT_FALSE(EsUtf8Valido("Pe\xC3"));
    EXPECT_FALSE(EsUtf8Valido("\xC0\xAF")); // a slash in two bytes
}

TEST(Text, JoinsThePeriodOfTheScreen) {
    EXPECT_EQ(PeriodoDePantalla(u"05/2024"), u"202405"_s);
    EXPECT_EQ(PeriodoDePantalla(u"052024"), u"202405"_s);
    EXPECT_EQ(PeriodoDePantalla(u"__/____"), u"______"_s);
    EXPECT_EQ(PeriodoDePantalla(u""), u""_s);
}

} // namespace
} // namespace xa518
