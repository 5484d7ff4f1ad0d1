#include "values/Decimal.h"

#include "Printers.h"
#include "values/Error.h"
#include "values/Format.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Numeric, IsDecidedByTheWholeText) {
    for (const QString& texto : u"000|-5|+5| 5 |1,234,567.8|(1,234)|.5|5."_s.split(u'|'))
        EXPECT_TRUE(EsNumerico(texto)) << qPrintable(texto);
    for (const QString& texto :
         u"| |.|-|()|1-|abc|1E3|12A|1.2.3|1,23|1234,567|--1|(-1)|1 2|5\t|1.2,345|(1|٣"_s.split(u'|'))
        EXPECT_FALSE(EsNumerico(texto)) << qPrintable(texto);
}

TEST(Value, IsTheLeadingNumericPart) {
    for (const QString& caso : u"=0|abc=0|1,234=1|(300)=0|5 kg=5|1-=1|.=0|.5=0.5|1.2.3=1.2|  -7x=-7|1E3=1|"
                               "0.02000=0.02|-0=0|1000=1000"_s.split(u'|'))
        EXPECT_EQ(Decimal::Valor(caso.section(u'=', 0, 0)).Texto(), caso.section(u'=', 1)) << qPrintable(caso);
}

TEST(Currency, HasFourDecimalsTiesToEven) {
    for (const QString& caso : u"0.12345=0.1234|0.12355=0.1236|0.123451=0.1235|-0.12345=-0.1234|-0.12355=-0.1236|"
                               "7=7"_s.split(u'|'))
        EXPECT_EQ(Importe::Valor(caso.section(u'=', 0, 0)).Texto(), caso.section(u'=', 1)) << qPrintable(caso);
}

TEST(Currency, RaisesPastItsWidthInsteadOfWrapping) {
    const Importe mayor = Importe::Valor(u"922337203685477.5807");
    const Importe minimo = Importe::Valor(u"0.0001");
    EXPECT_THROW((void)Importe::Valor(u"922337203685477.5808"), Desbordamiento);
    EXPECT_THROW((void)Importe::Valor(u"-922337203685477.5808"), Desbordamiento);
    EXPECT_THROW((void)(mayor + minimo), Desbordamiento);
}

TEST(Decimal, RaisesPastThirtySixDigits) {
    const Decimal grande = *Decimal::Lee(QString(36, u'9'));
    EXPECT_EQ(grande.Texto(), QString(36, u'9'));
    EXPECT_THROW((void)Decimal::Lee(QString(37, u'9')), Desbordamiento);
    EXPECT_THROW((void)(grande * grande), Desbordamiento);
    EXPECT_THROW((void)(grande * Decimal::DeEntero(10)), Desbordamiento); // fits 128 bits, but no longer 36 digits
    EXPECT_EQ(Decimal::Lee(QString(200, u'0') + u'7')->Texto(), u"7"_s);
}

TEST(Decimal, ComparesAndRoundsAcrossScales) {
    const auto numero = [](QStringView texto) { return *Decimal::Lee(texto); };
    EXPECT_LT(numero(u"-2"), numero(u"-1.9999"));
    EXPECT_GT(numero(u"10"), numero(u"9.99"));
    EXPECT_EQ((numero(u"0.1") + numero(u"0.2")).Texto(), u"0.3"_s);
    // Rounding to whole numbers with ties to even, as counts are; away from zero, as amounts are shown.
    for (const QString& caso : u"0.5 0 1|1.5 2 2|2.5 2 3|2.51 3 3|-2.5 -2 -3|-0.5 0 -1"_s.split(u'|')) {
        const Decimal valor = numero(caso.section(u' ', 0, 0));
        EXPECT_EQ(valor.RedondeaPar(0).Texto() + u' ' + valor.RedondeaFuera(0).Texto(), caso.section(u' ', 1));
    }
}

TEST(Decimal, TellsZeroAndSignHoweverLongTheText) {
    const QString largo(60, u'9');
    EXPECT_TRUE(EsNumericoCero(QString(60, u'0') + u".000"_s));
    EXPECT_FALSE(EsNumericoCero(u"0."_s + QString(60, u'0') + u'1'));
    EXPECT_FALSE(EsNumericoCero(u""));
    EXPECT_EQ(SignoDelValor(largo), 1);
    EXPECT_EQ(SignoDelValor(u'-' + largo), -1);
    EXPECT_EQ(SignoDelValor(u"-0.00"), 0);
    EXPECT_EQ(SignoDelValor(u"(5)"), 0);
}

} // namespace
} // namespace xa518
