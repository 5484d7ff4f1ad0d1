#include "support/Test.h"
#include "values/CheckDigits.h"
#include "values/ObjetoUtil.h"
#include "values/Ruc.h"

namespace {

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
    for (const QString& malo :
         u"20555123450|2055512345|205551234511|2055512345A| 20555123451| 2055512345"_s.split(u'|'))
        EXPECT_FALSE(ObjetoUtil::ValidaRUC(malo)) << qPrintable(malo);
}

TEST(Ruc, IsKeptAsItCameAndTellsItsKind) {
    const struct {
        QString texto, guardado;
        bool valido, antiguo, deEmpresa;
    } casos[] = {{u" 20555123451 "_s, u"20555123451"_s, true, false, true},
                 {u"10444123457"_s, u"10444123457"_s, true, false, false},
                 {u"20555123450"_s, u"20555123450"_s, false, false, true},
                 {u"20123456"_s, u"20123456"_s, false, true, true},
                 {u"2055A 2345"_s, u"2055A 2345"_s, false, false, true},
                 {u"  "_s, u""_s, false, false, false}};
    for (const auto& [texto, guardado, valido, antiguo, deEmpresa] : casos) {
        const Ruc ruc(texto);
        EXPECT_EQ(ruc.Texto(), guardado);
        EXPECT_EQ(ruc.EsValido(), valido) << qPrintable(texto);
        EXPECT_EQ(ruc.EsAntiguo(), antiguo) << qPrintable(texto);
        EXPECT_EQ(ruc.EsDeEmpresa(), deEmpresa) << qPrintable(texto);
    }
}

} // namespace
