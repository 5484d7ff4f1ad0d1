#include "data/CheckDigits.h"
#include "data/ObjetoUtil.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

/// Expected digits are worked out by hand: 11 - (sum of digit x weight) mod 11, weights 2..7 from the right.
TEST(CheckDigit, StandsBehindTheTrimmedAndCutNumber) {
    const struct {
        QString numero, conDigito, cortado;
    } casos[] = {
        {u"6"_s, u"60"_s, u"6"_s},                                                  // 12: rest 1 would be 10
        {u"14"_s, u"141"_s, u"14"_s},                                               // 8 + 3 = 11: rest 0 would be 11
        {u"2055512345"_s, u"20555123451"_s, u"2055512345"_s},                       // 120
        {u"123456789012345678"_s, u"123456789012345673"_s, u"12345678901234567"_s}, // the eighteenth doesn't count
        {u"  77  "_s, u"779"_s, u"77"_s},
        {u"                 7"_s, u""_s, u""_s}, // cut before it is trimmed
        {u"12A4"_s, u"12A41"_s, u"12A4"_s},      // 8 + 0 + 8 + 5... a letter counts 0
    };
    for (const auto& [original, conDigito, cortado] : casos) {
        QString numero = original;
        EXPECT_EQ(DigitoVerificador(numero), conDigito) << qPrintable(original);
        EXPECT_EQ(numero, cortado);
    }
}

TEST(CheckDigit, OfAnOrderNumberComesInPairs) {
    const struct {
        QString control, orden, digitos;
    } casos[] = {
        {u"12345678"_s, u"12345678"_s, u"51"_s},
        // Ten digits make nineteen characters with the eight before and the digit behind: the tenth doesn't count.
        {u"12345678"_s, u"1234567890"_s, u"54"_s},
        {u"12345678"_s, u"1234567891"_s, u"54"_s},
        // Another length than eight is no error: the ninth character is another one, or none.
        {u"1234567"_s, u"12345678"_s, u"5"_s},
        {u"123456789"_s, u"12345678"_s, u"94"_s},
        {u" 1234567"_s, u"123"_s, u"2"_s},
    };
    for (const auto& [control, orden, digitos] : casos)
        EXPECT_EQ(DigitosOrden(control, orden), digitos) << qPrintable(control + u'-' + orden);
    EXPECT_FALSE(ValidaDigitosOrden(u"1234567"_s, u"12345678"_s, u"05"));
}

TEST(ObjetoUtil, TellsTheCharactersOfEachKindOfText) {
    const struct {
        QString texto;
        bool digitos, letrasODigitos, deNombre;
    } casos[] = {
        {u""_s, false, false, true},
        {u"0123"_s, true, true, true},
        {u"A1z"_s, false, true, true},
        {u"1 2"_s, false, false, true},
        {u"José Güell .,-&'\"()/+*#:;_@%°"_s, false, false, true},
        {u"Peña"_s, false, false, false},
        {u"a|b"_s, false, false, false},
        {u"a\tb"_s, false, false, false},
        {u"à"_s, false, false, false},
        {u"٣"_s, false, false, false},
    };
    for (const auto& [texto, digitos, letrasODigitos, deNombre] : casos) {
        EXPECT_EQ(ObjetoUtil::ValidaNumeroDoc(texto), digitos) << qPrintable(texto);
        EXPECT_EQ(ObjetoUtil::ValidaTextoDoc(texto), letrasODigitos) << qPrintable(texto);
        EXPECT_EQ(ObjetoUtil::ValidaCaracteres(texto), deNombre) << qPrintable(texto);
    }
    EXPECT_TRUE(ObjetoUtil::ValidaRUC(u"20555123451"));
    for (const QString& malo : {u"20555123450"_s, u"2055512345"_s, u"205551234511"_s, u"2055512345A"_s})
        EXPECT_FALSE(ObjetoUtil::ValidaRUC(malo)) << qPrintable(malo);
}

} // namespace
} // namespace xa518
