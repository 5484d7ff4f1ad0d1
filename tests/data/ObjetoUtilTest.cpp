#include "data/ObjetoUtil.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(ObjetoUtil, KnowsARuc) {
    EXPECT_TRUE(ObjetoUtil::ValidaRUC(u"20555123451"));
    for (const QString& malo : {u"20555123450"_s, u"2055512345"_s, u"205551234511"_s, u"2055512345A"_s,
                                u" 20555123451"_s, u"A0555123451"_s, u""_s})
        EXPECT_FALSE(ObjetoUtil::ValidaRUC(malo)) << malo.toStdString();
}

TEST(ObjetoUtil, FillsAndNeverCuts) {
    EXPECT_EQ(ObjetoUtil::AlineaIzquierda(u"ab"_s, 4), u"ab  "_s);
    EXPECT_EQ(ObjetoUtil::AlineaDerecha(u"ab"_s, 4), u"  ab"_s);
    EXPECT_EQ(ObjetoUtil::AlineaDerecha(u"abcd"_s, 4), u"abcd"_s);
    EXPECT_EQ(ObjetoUtil::AlineaIzquierda(u"abcde"_s, 4), u"abcde"_s);
    EXPECT_EQ(ObjetoUtil::CompletaIzquierda(u"7"_s, 8, u'0'), u"00000007"_s);
    EXPECT_EQ(ObjetoUtil::CompletaIzquierda(u"123456789"_s, 8, u'0'), u"123456789"_s);
    EXPECT_EQ(ObjetoUtil::CompletaDerecha(u""_s, 3, u'_'), u"___"_s);
}

TEST(ObjetoUtil, TakesTheLimitsOfARangeInclusively) {
    const auto enRango = [](QStringView fecha) {
        return ObjetoUtil::FechaEnRango(fecha, u"01/01/1850", u"01/01/2500");
    };
    EXPECT_TRUE(enRango(u"01/01/1850"));
    EXPECT_TRUE(enRango(u"01/01/2500"));
    EXPECT_TRUE(enRango(u"31/12/1999")); // compared as days, not as texts
    EXPECT_FALSE(enRango(u"31/12/1849"));
    EXPECT_FALSE(enRango(u"02/01/2500"));
    EXPECT_FALSE(enRango(u"30/02/2000"));
    EXPECT_FALSE(enRango(u""));
}

TEST(ObjetoUtil, TellsTheCharactersOfEachKindOfText) {
    struct Caso {
        QString texto;
        bool digitos;
        bool letrasODigitos;
        bool deNombre;
    };
    const QList<Caso> casos = {
        {u""_s, false, false, true},
        {u"0123"_s, true, true, true},
        {u"A1z"_s, false, true, true},
        {u"1 2"_s, false, false, true},
        {u"José Güell"_s, false, false, true},
        {u"ÁÉÍÓÚäëïöü"_s, false, false, true},
        {u".,-&'\"()/+*#:;_@%°"_s, false, false, true},
        {u"Peña"_s, false, false, false},
        {u"a|b"_s, false, false, false},
        {u"a\tb"_s, false, false, false},
        {u"à"_s, false, false, false},
        {u"!"_s, false, false, false},
        {u"٣"_s, false, false, false},
    };
    for (const Caso& caso : casos) {
        EXPECT_EQ(ObjetoUtil::ValidaNumeroDoc(caso.texto), caso.digitos) << caso.texto.toStdString();
        EXPECT_EQ(ObjetoUtil::ValidaTextoDoc(caso.texto), caso.letrasODigitos) << caso.texto.toStdString();
        EXPECT_EQ(ObjetoUtil::ValidaCaracteres(caso.texto), caso.deNombre) << caso.texto.toStdString();
    }
    EXPECT_EQ(ObjetoUtil::QuitaEnie(u"Ñañá Ü"_s), u"Naná Ü"_s);
}

TEST(ObjetoUtil, FiltersKeys) {
    struct Caso {
        int tecla;
        int numero;
        int numeroConPunto;
        bool valida;
    };
    const QList<Caso> casos = {
        {'0', '0', '0', true}, {'9', '9', '9', true}, {'/', 0, 0, false},  {':', 0, 0, false}, {'.', 0, '.', false},
        {'-', 0, 0, false},    {'a', 0, 0, true},     {'Z', 0, 0, true},   {' ', 0, 0, true},  {8, 8, 8, true},
        {13, 13, 13, true},    {9, 9, 9, false},      {0xF1, 0, 0, false},
    };
    for (const Caso& caso : casos) {
        EXPECT_EQ(ObjetoUtil::FiltraTeclaNumero(caso.tecla), caso.numero) << caso.tecla;
        EXPECT_EQ(ObjetoUtil::FiltraTeclaNumero(caso.tecla, true), caso.numeroConPunto) << caso.tecla;
        EXPECT_EQ(ObjetoUtil::EsTeclaValida(caso.tecla), caso.valida) << caso.tecla;
    }
    EXPECT_EQ(ObjetoUtil::FiltraTeclaMayuscula(0xF1), 0xD1);
    EXPECT_EQ(ObjetoUtil::FiltraTeclaMayuscula(8), 8);
}

TEST(ObjetoUtil, FindsFilesOnly) {
    const QTemporaryDir carpeta;
    EXPECT_FALSE(ObjetoUtil::ExisteArchivo(carpeta.path()));
    EXPECT_FALSE(ObjetoUtil::ExisteArchivo(carpeta.filePath(u"x.PRN"_s)));
    QFile archivo(carpeta.filePath(u"x.PRN"_s));
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    EXPECT_TRUE(ObjetoUtil::ExisteArchivo(archivo.fileName()));
}

} // namespace
} // namespace xa518
