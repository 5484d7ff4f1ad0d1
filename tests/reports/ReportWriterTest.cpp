#include "reports/ReportWriter.h"
#include "reports/ReportFixture.h"

#include <gtest/gtest.h>

#include "Printers.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;

TEST(ReportWriter, TurnsThePageWhenItsWidthSaysSo) {
    const struct {
        int ancho;
        int lineas;
    } casos[] = {{82, 85}, {83, 83}, {149, 83}, {150, 64}, {154, 64}};
    for (const auto& [ancho, lineas] : casos) {
        Libreta libreta;
        EscritorInforme escritor(libreta, ancho);
        int cabeceras = 0;
        escritor.PonCabecera([&] { ++cabeceras; });
        for (int i = 1; i < lineas; ++i)
            escritor.ImprimeLinea(u"x"_s);
        EXPECT_EQ(escritor.PaginaActual(), 1) << ancho;
        escritor.ImprimeLinea(u"última"_s);
        EXPECT_EQ(escritor.PaginaActual(), 2) << ancho;
        EXPECT_EQ(cabeceras, 1);
        EXPECT_EQ(libreta.TextoEn(10, lineas * 175), u"última"_s);
        escritor.ImprimeLinea(u"primera"_s);
        EXPECT_EQ(libreta.TextoEn(10, 175, 1), u"primera"_s) << "the position goes back to the top";
    }
}

TEST(ReportWriter, CountsTagsOnEveryPageAndWritesThemOnTheFirst) {
    Libreta libreta;
    EscritorInforme escritor(libreta, 154);
    const Etiqueta etiqueta{Etiqueta::Clase::Hojas, u"1"_s};
    for (int pagina = 1; pagina <= 2; ++pagina) {
        escritor.ImprimeEtiqueta(etiqueta);
        for (int i = 0; i < 63; ++i)
            escritor.ImprimeLinea({});
        EXPECT_EQ(escritor.PaginaActual(), pagina + 1);
    }
    EXPECT_EQ(libreta.comandos.count(Comando(etiqueta)), 1);
    EXPECT_EQ(libreta.comandos.count(Comando(LineaVacia())), 126);
}

TEST(ReportWriter, PlacedTextsNeverTurnThePageAndAManualTurnStartsTheCountAnew) {
    Libreta libreta;
    EscritorInforme escritor(libreta, 154);
    for (int i = 0; i < 200; ++i) {
        escritor.ImprimePos(1, 2, u"x"_s);
        escritor.ImprimeCuadro(1, 2, 3, 4);
    }
    for (int i = 0; i < 63; ++i)
        escritor.ImprimeLinea(u"x"_s);
    escritor.NuevaPagina();
    escritor.ImprimeLinea(u"x"_s);
    EXPECT_EQ(escritor.PaginaActual(), 2);
    EXPECT_EQ(libreta.Hojas(), 2);
}
