#include "values/Decimal.h"

#include "Printers.h"
#include "values/Error.h"
#include "values/Format.h"

#include <gtest/gtest.h>

#include <QMap>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Numeric, IsDecidedByTheWholeText) {
    const QStringList si = {u"000"_s, u"-5"_s, u"+5"_s, u" 5 "_s, u"1,234,567.8"_s, u"(1,234)"_s, u".5"_s, u"5."_s};
    const QStringList no = {u""_s,    u" "_s,   u"."_s,       u"-"_s,    u"()"_s,       u"1-"_s,  u"abc"_s,
                            u"1E3"_s, u"12A"_s, u"1.2.3"_s,   u"1,23"_s, u"1234,567"_s, u"--1"_s, u"(-1)"_s,
                            u"1 2"_s, u"5\t"_s, u"1.2,345"_s, u"(1"_s,   u"٣"_s};
    for (const QString& texto : si)
        EXPECT_TRUE(EsNumerico(texto)) << texto.toStdString();
    for (const QString& texto : no)
        EXPECT_FALSE(EsNumerico(texto)) << texto.toStdString();
}

TEST(Value, IsTheLeadingNumericPart) {
    const QMap<QString, QString> casos = {{u""_s, u"0"_s},       {u"abc"_s, u"0"_s},    {u"1,234"_s, u"1"_s},
                                          {u"(300)"_s, u"0"_s},  {u"5 kg"_s, u"5"_s},   {u"1-"_s, u"1"_s},
                                          {u"."_s, u"0"_s},      {u".5"_s, u"0.5"_s},   {u"1.2.3"_s, u"1.2"_s},
                                          {u"  -7x"_s, u"-7"_s}, {u"1E3"_s, u"1"_s},    {u"0.02000"_s, u"0.02"_s},
                                          {u"-0"_s, u"0"_s},     {u"1000"_s, u"1000"_s}};
    for (auto caso = casos.begin(); caso != casos.end(); ++caso)
        EXPECT_EQ(Decimal::Valor(caso.key()).Texto(), caso.value()) << caso.key().toStdString();
}

TEST(Currency, HasFourDecimalsTiesToEven) {
    const QMap<QString, QString> casos = {{u"0.12345"_s, u"0.1234"_s},   {u"0.12355"_s, u"0.1236"_s},
                                          {u"0.123451"_s, u"0.1235"_s},  {u"-0.12345"_s, u"-0.1234"_s},
                                          {u"-0.12355"_s, u"-0.1236"_s}, {u"7"_s, u"7"_s}};
    for (auto caso = casos.begin(); caso != casos.end(); ++caso)
        EXPECT_EQ(Importe::Valor(caso.key()).Texto(), caso.value());
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
    const QMap<QString, QStringList> casos = {{u"0.5"_s, {u"0"_s, u"1"_s}},    {u"1.5"_s, {u"2"_s, u"2"_s}},
                                              {u"2.5"_s, {u"2"_s, u"3"_s}},    {u"2.51"_s, {u"3"_s, u"3"_s}},
                                              {u"-2.5"_s, {u"-2"_s, u"-3"_s}}, {u"-0.5"_s, {u"0"_s, u"-1"_s}}};
    for (auto caso = casos.begin(); caso != casos.end(); ++caso) {
        EXPECT_EQ(numero(caso.key()).RedondeaPar(0).Texto(), caso.value()[0]) << caso.key().toStdString();
        EXPECT_EQ(numero(caso.key()).RedondeaFuera(0).Texto(), caso.value()[1]) << caso.key().toStdString();
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
