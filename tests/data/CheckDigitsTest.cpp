#include "data/CheckDigits.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QList>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

/// Expected digits are worked out by hand: 11 - (sum of digit x weight) mod 11, weights 2..7 from the right.
TEST(CheckDigit, StandsBehindTheTrimmedAndCutNumber) {
    struct Caso {
        QString numero;
        QString conDigito;
        QString cortado;
    };
    const QList<Caso> casos = {
        {u"2"_s, u"27"_s, u"2"_s},                            // 4
        {u"6"_s, u"60"_s, u"6"_s},                            // 12: rest 1 would be 10
        {u"14"_s, u"141"_s, u"14"_s},                         // 8 + 3 = 11: rest 0 would be 11
        {u"2055512345"_s, u"20555123451"_s, u"2055512345"_s}, // 120
        {u"12345678901234567"_s, u"123456789012345673"_s, u"12345678901234567"_s},
        {u"123456789012345678"_s, u"123456789012345673"_s, u"12345678901234567"_s}, // the eighteenth doesn't count
        {u"  77  "_s, u"779"_s, u"77"_s},
        {u"                 7"_s, u""_s, u""_s}, // cut before it is trimmed
        {u"12A4"_s, u"12A41"_s, u"12A4"_s},      // 8 + 0 + 8 + 5... a letter counts 0
        {u""_s, u""_s, u""_s},
    };
    for (const Caso& caso : casos) {
        QString numero = caso.numero;
        EXPECT_EQ(DigitoVerificador(numero), caso.conDigito) << caso.numero.toStdString();
        EXPECT_EQ(numero, caso.cortado);
    }
}

TEST(CheckDigit, OfAnOrderNumberComesInPairs) {
    struct Caso {
        QString control;
        QString orden;
        QString digitos;
    };
    const QList<Caso> casos = {
        {u"12345678"_s, u"12345678"_s, u"51"_s},
        // Ten digits make nineteen characters with the eight before and the digit behind: the tenth doesn't count.
        {u"12345678"_s, u"1234567890"_s, u"54"_s},
        {u"12345678"_s, u"1234567891"_s, u"54"_s},
        {u"12345678"_s, u"1234567880"_s, u"56"_s},
        // Another length than eight is no error: the ninth character is another one, or none.
        {u"1234567"_s, u"12345678"_s, u"5"_s},
        {u"123456789"_s, u"12345678"_s, u"94"_s},
        {u" 1234567"_s, u"123"_s, u"2"_s},
        {u""_s, u"1234"_s, u"3"_s},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(DigitosOrden(caso.control, caso.orden), caso.digitos) << caso.control.toStdString();
    EXPECT_TRUE(ValidaDigitosOrden(u"12345678"_s, u"12345678"_s, u"51"));
    EXPECT_FALSE(ValidaDigitosOrden(u"12345678"_s, u"12345678"_s, u"15"));
    EXPECT_FALSE(ValidaDigitosOrden(u"1234567"_s, u"12345678"_s, u"05"));
}

TEST(CheckDigit, RunningNumberIsChangedAndShown) {
    int contador = 7;
    EXPECT_EQ(SumaTexto(contador, 5), u"12"_s);
    EXPECT_EQ(contador, 12);
}

} // namespace
} // namespace xa518
