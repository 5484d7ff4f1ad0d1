#include "values/Period.h"
#include "support/Test.h"

namespace {

/// The table's spelling of what was read; "-" for nothing.
QString Leido(const std::optional<Periodo>& periodo) {
    return periodo ? periodo->Texto() : u"-"_s;
}

TEST(Period, ReadsEachSpelling) {
    // The tables aren't asked for a real month, the screen is. A date has its period before its day is looked at.
    for (const QString& caso : u"202405=202405|202413=202413|20240=-|2024051=-|2024 5=-|=-"_s.split(u'|'))
        EXPECT_EQ(Leido(Periodo::DeTabla(caso.section(u'=', 0, 0))), caso.section(u'=', 1)) << qPrintable(caso);
    for (const QString& caso : u"05/2024=202405|052024=202405|12/1999=199912|00/2024=-|13/2024=-|132024=-|5/2024=-|"
                               "05-2024=-|__/____=-|05/20_4=-|=-"_s.split(u'|'))
        EXPECT_EQ(Leido(Periodo::DePantalla(caso.section(u'=', 0, 0))), caso.section(u'=', 1)) << qPrintable(caso);
    for (const QString& caso : u"31/02/2024=202402|__/05/2024=202405|01/0_/2024=-|01/05/202=-|=-"_s.split(u'|'))
        EXPECT_EQ(Leido(Periodo::DeFecha(caso.section(u'=', 0, 0))), caso.section(u'=', 1)) << qPrintable(caso);
    EXPECT_EQ(Periodo::DelDia({2024, 5, 31}), Periodo(2024, 5));
}

TEST(Period, WritesEachSpellingAndNoneAsNothing) {
    const Periodo periodo(2024, 5);
    EXPECT_EQ(periodo.Texto() + u' ' + periodo.EnPantalla() + u' ' + periodo.EnLista(), u"202405 05/2024 052024"_s);
    EXPECT_EQ(Periodo(987, 1).EnPantalla(), u"01/0987"_s);
    const Periodo ninguno;
    EXPECT_TRUE(ninguno.EsNinguno());
    for (const QString& texto : {ninguno.Texto(), ninguno.EnPantalla(), ninguno.EnLista()})
        EXPECT_TRUE(texto.isEmpty() && !texto.isNull());
    EXPECT_LT(ninguno, Periodo(1, 1));
}

TEST(Period, GoesFromMonthToMonthOverTheYearsEnd) {
    const Periodo meses[] = {Periodo(2023, 11), Periodo(2023, 12), Periodo(2024, 1), Periodo(2024, 2)};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(meses[i].Siguiente(), meses[i + 1]);
        EXPECT_EQ(meses[i + 1].Anterior(), meses[i]);
        EXPECT_LT(meses[i], meses[i + 1]);
    }
}

} // namespace
