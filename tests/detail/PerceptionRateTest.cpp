#include "detail/PerceptionRate.h"

#include "support/TemporaryBase.h"
#include "values/Error.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

constexpr Contestacion kSi = true;
constexpr Contestacion kNo = false;
constexpr Contestacion kSinRespuesta = std::nullopt;

TEST(PerceptionRate, ClassOfEachBandAndAnswer) {
    const struct {
        Banda banda;
        Respuestas respuestas; // credit, list, zone, means
        QString clase;
    } casos[] = {
        {Banda::A, {kSi, kSi, kSinRespuesta, kSinRespuesta}, u"1"_s},
        {Banda::A, {kSi, kNo, kSinRespuesta, kSinRespuesta}, u"2"_s},
        {Banda::A, {kNo, kSinRespuesta, kSinRespuesta, kSinRespuesta}, u"2"_s},
        {Banda::B, {kSi, kSi, kSi, kSinRespuesta}, u"1"_s},
        {Banda::B, {kSi, kNo, kSi, kSinRespuesta}, u"6"_s},
        {Banda::B, {kSi, kSi, kNo, kSinRespuesta}, u"1"_s},
        {Banda::B, {kSi, kNo, kNo, kSinRespuesta}, u"2"_s},
        {Banda::B, {kSi, kSi, kSinRespuesta, kSinRespuesta}, {}},
        {Banda::B, {kNo, kSi, kSi, kSinRespuesta}, u"6"_s},
        {Banda::B, {kNo, kSi, kNo, kSinRespuesta}, u"2"_s},
        {Banda::C, {kSi, kSi, kSinRespuesta, kSi}, u"3"_s},
        {Banda::C, {kSi, kSi, kSinRespuesta, kNo}, u"4"_s},
        {Banda::C, {kSi, kSi, kSinRespuesta, kSinRespuesta}, {}}, // the hidden question
        {Banda::C, {kSi, kNo, kSinRespuesta, kSinRespuesta}, u"4"_s},
        {Banda::C, {kNo, kSinRespuesta, kSinRespuesta, kSinRespuesta}, u"5"_s},
        {Banda::C, {kSinRespuesta, kSi, kSi, kSi}, {}},
    };
    for (size_t i = 0; i < std::size(casos); ++i)
        EXPECT_EQ(ClaseTasa(casos[i].banda, casos[i].respuestas), casos[i].clase) << "row " << i;
}

TEST(PerceptionRate, RoundsTwice) {
    EXPECT_EQ(Percepcion(u"100.25"_s, u"0.02"_s), u"2.01"_s);
    EXPECT_EQ(Percepcion(u"10.10"_s, u"0.00505"_s), u"0.05"_s);
    EXPECT_EQ(Percepcion(u"1.23"_s, u"0.00405"_s), u"0.01"_s);
    EXPECT_EQ(Percepcion({}, u"0.02"_s), u" "_s);
    EXPECT_EQ(Percepcion(u"100"_s, u"0.02 or so"_s), u"2.00"_s);
    EXPECT_THROW((void)Percepcion(u"999999999999.99"_s, u"99999999"_s), Desbordamiento);
    EXPECT_EQ(LimitaMonto(u"1000000000000"_s), u"999999999999.99"_s);
}

TEST(PerceptionRate, SalesTaxIsTheLatestStartNotAfterThePeriod) {
    const prueba::BaseTemporal base;
    base.Param(u"998"_s, u"0101010200501"_s, u" 19.00 "_s);
    base.Param(u"998"_s, u"0101010201103"_s, u" 18    "_s);
    const auto igv = [&](const QString& periodo) { return IniIgv(*base, u"010101"_s, u"998"_s, periodo); };
    EXPECT_EQ(igv(u"201102"_s), u"19"_s);
    EXPECT_EQ(igv(u"201103"_s), u"18"_s);
    EXPECT_EQ(igv(u"200412"_s), QString());
}

TEST(PerceptionRate, TypeLabelTellsCreditAndRange) {
    EXPECT_EQ(LblTipo(u"202610"_s, u"209912"_s, kSi), u"1"_s);
    EXPECT_EQ(LblTipo(u"202610"_s, u"201012"_s, kSi), u"2"_s);
    EXPECT_EQ(LblTipo(u"202610"_s, u"209912"_s, kSinRespuesta), u"3"_s);
}

} // namespace
