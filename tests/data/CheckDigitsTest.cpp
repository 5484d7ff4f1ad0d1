#include "DataFixture.h"

#include "data/CheckDigits.h"
#include "data/ObjetoUtil.h"
#include "data/RecordChecksum.h"

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

/// Expected digits are worked out by hand: 11 - (sum of digit x weight) mod 11, weights 2..7 from the right.
TEST(CheckDigit, StandsBehindTheTrimmedAndCutNumber) {
    // 6: rest 1 would be 10. 14: 8 + 3 = 11, rest 0 would be 11. The eighteenth digit doesn't count. A number is cut
    // before it is trimmed, and a letter counts 0.
    for (const QString& caso : u"6=60=6|14=141=14|2055512345=20555123451=2055512345|"
                               "123456789012345678=123456789012345673=12345678901234567|  77  =779=77|"
                               "                 7==|12A4=12A41=12A4"_s.split(u'|')) {
        QString numero = caso.section(u'=', 0, 0);
        const QString conDigito = DigitoVerificador(numero);
        EXPECT_EQ(conDigito + u'=' + numero, caso.section(u'=', 1));
    }
}

TEST(CheckDigit, OfAnOrderNumberComesInPairs) {
    // Ten digits make nineteen characters with the eight before and the digit behind: the tenth doesn't count. Another
    // length than eight is no error: the ninth character is another one, or none.
    for (const QString& caso : u"12345678/12345678/51|12345678/1234567890/54|12345678/1234567891/54|1234567/12345678/5|"
                               "123456789/12345678/94| 1234567/123/2"_s.split(u'|'))
        EXPECT_EQ(DigitosOrden(caso.section(u'/', 0, 0), caso.section(u'/', 1, 1)), caso.section(u'/', 2));
    EXPECT_FALSE(ValidaDigitosOrden(u"1234567"_s, u"12345678"_s, u"05"));
}

TEST(ObjetoUtil, TellsTheCharactersOfEachKindOfText) {
    const struct {
        QString textos; ///< parted by "~"
        bool digitos, letrasODigitos, deNombre;
    } casos[] = {{u"0123"_s, true, true, true},
                 {u"A1z"_s, false, true, true},
                 {u"~1 2~José Güell .,-&'\"()/+*#:;_@%°"_s, false, false, true},
                 {u"Peña~a|b~a\tb~à~٣"_s, false, false, false}};
    for (const auto& [textos, digitos, letrasODigitos, deNombre] : casos) {
        for (const QString& texto : textos.split(u'~')) {
            EXPECT_EQ(ObjetoUtil::ValidaNumeroDoc(texto), digitos) << qPrintable(texto);
            EXPECT_EQ(ObjetoUtil::ValidaTextoDoc(texto), letrasODigitos) << qPrintable(texto);
            EXPECT_EQ(ObjetoUtil::ValidaCaracteres(texto), deNombre) << qPrintable(texto);
        }
    }
    EXPECT_TRUE(ObjetoUtil::ValidaRUC(u"20555123451"));
    for (const QString& malo : {u"20555123450"_s, u"2055512345"_s, u"205551234511"_s, u"2055512345A"_s})
        EXPECT_FALSE(ObjetoUtil::ValidaRUC(malo)) << qPrintable(malo);
}

class RecordChecksumTest : public BaseDePrueba {
  protected:
    RecordChecksumTest() {
        m_base->Ejecuta(u"CREATE TABLE LIBRE (a TEXT, b TEXT, c TEXT, d TEXT, e TEXT, f TEXT, g TEXT, cNumero TEXT)"_s);
    }
    [[nodiscard]] QString De(const QString& tabla, int primeros, const QVariantList& valores) {
        Registro registro(m_base->Describe(tabla));
        for (int i = 0; i < valores.size(); ++i)
            registro.Pon(i, valores[i]);
        return ChecksumRegistro(registro, primeros);
    }
};

TEST_F(RecordChecksumTest, SumsNumbersAndThenCodesByPosition) {
    // 20555123451 + 6 + 202405 + 518 = ...380; "1500" 491, "0" 48, "0" 48 = 587. The date is no number, blanks are cut.
    const QVariantList cab = {u"20555123451"_s, 6,     u"202405"_s, u"0518"_s, u"03/06/2024"_s, u" "_s,
                              u" "_s,           u""_s, u"1500"_s,   0,         u"0"_s};
    EXPECT_EQ(De(u"CAB"_s, 5, cab), u"380587"_s);
    // Accents, Ñ and € by their code in Windows-1252; a null field counts nothing; the whole sums pass three digits.
    const QVariantList cliente = {6,           u"20555123451"_s,
                                  u"202405"_s, u"0518"_s,
                                  6,           u"10456789012"_s,
                                  QVariant(),  u"NÚÑEZ"_s,
                                  u"PEÑA"_s,   u"JOSÉ €"_s,
                                  3,           u"1000.50"_s,
                                  u"20.01"_s,  1};
    EXPECT_EQ(De(u"F518PCAB"_s, 6, cliente), u"398371"_s);
}

TEST_F(RecordChecksumTest, GivesSixDigitsForAnyRow) {
    EXPECT_EQ(De(u"LIBRE"_s, 6, {}), u"000000"_s);
    EXPECT_EQ(De(u"LIBRE"_s, 5, {u"1.25"_s, u"1.25"_s, u"A"_s, u""_s, u""_s, u""_s, u"x"_s}), u"003120"_s); // 2.5 is 3
    EXPECT_EQ(De(u"LIBRE"_s, 5, {u" 7 "_s, u"-9.5"_s, u""_s, u""_s, u""_s, u"a b "_s}), u"003455"_s);
    EXPECT_EQ(De(u"LIBRE"_s, 5, {1, 2, 3, 4, 5, u"日本"_s}), u"015189"_s); // two "?": 63 + 126
    // The position starts again in each field, and what lies in the last field doesn't count.
    EXPECT_EQ(De(u"LIBRE"_s, 5, {0, 0, 0, 0, 0, u"A"_s, u"A"_s, u"999"_s}), u"000130"_s);
}

TEST_F(RecordChecksumTest, RaisesWhereSixteenBitsEnd) {
    const auto largo = [this](const QString& texto) { return De(u"LIBRE"_s, 5, {0, 0, 0, 0, 0, texto}); };
    EXPECT_NO_THROW((void)largo(QString(128, u'ÿ'))); // 255 x 128 = 32640
    EXPECT_THROW((void)largo(QString(129, u'ÿ')), Desbordamiento);
    EXPECT_NO_THROW((void)largo(QString(504, u'A'))); // 65 x 504 = 32760
    EXPECT_THROW((void)largo(QString(505, u'A')), Desbordamiento);
}

} // namespace
} // namespace xa518
