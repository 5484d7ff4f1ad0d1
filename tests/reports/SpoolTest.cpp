#include "reports/ReportFixture.h"
#include "reports/SharedReports.h"
#include "reports/SpoolFile.h"
#include "reports/SpoolLines.h"
#include "reports/SpoolReader.h"
#include "reports/SpoolReport.h"
#include "values/Error.h"

#include <QBuffer>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

std::unique_ptr<InformeSpool> InformeDe(const QByteArray& bytes) {
    auto entrada = std::make_unique<QBuffer>();
    entrada->setData(bytes);
    entrada->open(QIODevice::ReadOnly);
    return std::make_unique<InformeSpool>(std::move(entrada));
}

QStringList TextosDe(InformeSpool& informe, int pagina) {
    Libreta libreta;
    informe.RecorrePagina(pagina, [&](const Comando& comando) { libreta.Recibe(comando); });
    return libreta.Textos(pagina);
}

} // namespace

TEST(SpoolLine, SaysWhatItHoldsAndPassesOverTheRest) {
    const struct {
        QByteArray linea;
        std::optional<Comando> esperado;
    } casos[] = {
        {"pPos|10|175|Ñandú|False|8|0|", TextoEnPagina{10, 175, u"Ñandú"_s, false, 8, 0}},
        {" pPos |-5| 20 | x |tRUE|9|3|sobra", TextoEnPagina{-5, 20, u" x "_s, true, 9, 3}},
        {"pPos|1|2|viejo \xf1|-1|8|0|", TextoEnPagina{1, 2, u"viejo ñ"_s, true, 8, 0}},
        {"pPos|uno|2x|t|Verdad|8.9|99999999999999999999|", TextoEnPagina{0, 0, u"t"_s, false, 8, 1'000'000}},
        {"pPosVerti|1|2|ab|False|8|0|", TextoVertical{{1, 2, u"ab"_s, false, 8, 0}}},
        {"pCuadro|1|2|3|4|5|", Cuadro{1, 2, 3, 4, 5}},
        {"pNuevaHoja", NuevaHoja()},
        {"<!Color!>&H80000005&<!/Color!>", Etiqueta{Etiqueta::Clase::Color, u"&H80000005&"_s}},
        {"pPos|10|175|falta lo demás", {}},
        {"ppos|10|175|t|False|8|0|", {}},
        {"otraHoja", {}},
        {"<!font!>sin cierre", {}},
        {"", {}},
    };
    for (const auto& [linea, esperado] : casos)
        EXPECT_EQ(LineaSpool(linea).Lee(), esperado) << linea.constData();
}

TEST(SpoolFile, GivesBackWhatWasWrittenAndNoTextBecomesACommand) {
    const ProcesoConInformes taller;
    const QString ruta = taller.base.Carpeta() + u"/a.PRN"_s;
    const QList<Comando> comandos{Etiqueta{Etiqueta::Clase::Orientacion, u"H"_s},
                                  TextoEnPagina{10, 175, u"<!nHojas!>9<!/nHojas!>"_s, true, 8, 0},
                                  NuevaHoja(),
                                  TextoEnPagina{10, 175, u"MUÑOZ €"_s, false, 16, 1},
                                  TextoVertical{{1, 2, u"de pie"_s, false, 8, 1}},
                                  Cuadro{180, 0, 11000, 270, 1}};
    ArchivoSpool spool(ruta);
    for (const Comando& comando : comandos)
        spool.Recibe(comando);
    spool.Recibe(LineaVacia());
    spool.Recibe(TextoEnPagina{10, 350, u"a|b\nc\td"_s, false, 8, 1});
    spool.Termina();
    EXPECT_TRUE(BytesDeTexto(ruta).endsWith("\n \npPos|10|350|a b c d|False|8|1|\n"));

    Libreta libreta;
    InformeSpool::Abre(ruta)->Imprime({}, libreta);
    EXPECT_EQ(libreta.comandos.first(6), comandos);
    EXPECT_EQ(QFile::permissions(ruta) & kDeOtros, QFile::Permissions());
    EXPECT_THROW(ArchivoSpool(ruta + u"/a.PRN"_s), Error) << "a file is no folder";
    ArchivoSpool discoLleno(u"/dev/full"_s);
    discoLleno.Recibe(NuevaHoja());
    EXPECT_THROW(discoLleno.Termina(), Error);
}

TEST(SpoolHead, TellsItsPagesAndColourAndPassesOverRubbish) {
    const QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"a.PRN"_s);
    for (const auto& [cabecera, hojas] :
         {std::pair<QByteArray, int>{"<!font!>x<!/font!>\r\n<!nHojas!> 12 <!/nHojas!>\r\n", 12},
          {"<!nHojas!>-3<!/nHojas!>", 0},
          {"<!nHojas!>doce<!/nHojas!>", 0},
          {"<!nHojas!>99999999999<!/nHojas!>", 0},
          {"<!nHojas!>5", 0},
          {"pNuevaHoja", 0}}) {
        EscribeEn(ruta, cabecera);
        EXPECT_EQ(LeeNumeroHojas(ruta), hojas) << cabecera.constData();
    }
    EXPECT_EQ(NumeroDeHojasDe(ruta + u"x"_s), std::nullopt);
    EXPECT_EQ(PaginasDe(ruta + u"x"_s), std::nullopt);
    const QByteArray trece = "<!nHojas!>11<!/nHojas!>\npPos|1|1|a|False|8|0|\npPos|1|1|b|False|8|12|\npNuevaHoja\n";
    for (const QByteArray& detras : {QByteArray(), QByteArray("basura\n").repeated(40'000), QByteArray(300'000, 'x')}) {
        EscribeEn(ruta, trece + detras);
        EXPECT_EQ(PaginasDe(ruta), 13) << detras.size();
    }
    EXPECT_EQ(ColorPagina::Lee(u"&H00FFFFC0&"), (ColorPagina{false, 0, 0xC0, 0xFF, 0xFF}));
    EXPECT_EQ(ColorPagina::Lee(u"&H80000005&"), (ColorPagina{true, 5}));
    for (const QString& rubbish : u"|&H|&H&|&HZZ&|&HFFFFFFFFFF&|C0FFFF"_s.split(u'|'))
        EXPECT_EQ(ColorPagina::Lee(rubbish), ColorPagina()) << qPrintable(rubbish);
}

TEST(SpoolReport, ReadsPagesInAnyOrderAndWhereverTheirCommandsStand) {
    const auto informe = InformeDe("<!Orientacion!>H<!/Orientacion!>\r\n<!nHojas!>7<!/nHojas!>\r\n"
                                   "pPos|1|1|a|False|8|0|\r\npPos|1|1|d|False|8|3|\r\npPos|1|1|b|False|8|0|\r\n"
                                   "pPos|1|1|nunca|False|8|-1|\npPos|1|1|nunca|False|8|100000|\npPos|1|1|cortado|Fal");
    EXPECT_TRUE(informe->Cabecera().apaisado);
    EXPECT_EQ(informe->Cabecera().hojas, 7);
    EXPECT_EQ(informe->Paginas(), 4) << "pages 2 and 3 have no commands and yet exist";
    EXPECT_THAT(TextosDe(*informe, 3), ElementsAre(u"d"_s));
    EXPECT_THAT(TextosDe(*informe, 0), ElementsAre(u"a"_s, u"b"_s));
    for (const int vacia : {1, 2, 4, -1})
        EXPECT_TRUE(TextosDe(*informe, vacia).isEmpty());
    EXPECT_EQ(InformeDe("")->Paginas(), 1);
}

TEST(SpoolReport, FindsLinesWhateverTheirLength) {
    const QByteArray relleno(300'000, 'x');
    const QByteArray justo(LineasTolerantes::kLineaMaxima - 25, 'y');
    const auto informe = InformeDe("pPos|1|1|" + relleno + "|False|8|0|\npPos|1|1|" + justo +
                                   "|False|8|1|\npPos|1|1|fin|False|8|2|\n" + relleno);
    EXPECT_EQ(informe->Paginas(), 3);
    EXPECT_THAT(TextosDe(*informe, 0), ElementsAre());
    EXPECT_THAT(TextosDe(*informe, 1), ElementsAre(QString::fromLatin1(justo)));
    EXPECT_THAT(TextosDe(*informe, 2), ElementsAre(u"fin"_s));
}

/// What one machine has written shows on another one, and over no file that was there before.
TEST(SharedReport, ReachesEverySeatOfAServer) {
    ProcesoConInformes taller;
    QTemporaryDir deAqui;
    QTemporaryDir deAlla;
    const QString nombre = u"00000001.PRN"_s;
    const QByteArray texto = QByteArray("pPos|10|175|Ñandú|False|8|0|\nNuevaHoja\n").repeated(20'000);
    EscribeEn(deAqui.filePath(nombre), texto);
    TextosDeInformes textos(*taller.base);
    textos.Guarda(deAqui.path(), nombre);
    if (!HayServidorDePrueba()) {
        EXPECT_EQ(textos.Trae(deAlla.path(), nombre), nombre);
        EXPECT_FALSE(QFile::exists(deAlla.filePath(nombre)));
        return;
    }
    EXPECT_EQ(textos.Hojas(), (QHash<QString, int>{{nombre, PaginasDe(deAqui.filePath(nombre)).value()}}));
    EXPECT_EQ(textos.Trae(deAlla.path(), nombre), nombre);
    EXPECT_EQ(BytesDe(deAlla.filePath(nombre)), texto);
    EscribeEn(deAlla.filePath(nombre), "de otra base");
    EXPECT_EQ(textos.Trae(deAlla.path(), nombre), u"S-"_s + nombre);
    EXPECT_EQ(BytesDe(deAlla.filePath(u"S-"_s + nombre)), texto);
    EXPECT_EQ(BytesDe(deAlla.filePath(nombre)), QByteArray("de otra base"));
    textos.Elimina(nombre);
    EXPECT_EQ(textos.Trae(deAqui.path(), nombre), nombre);
    EXPECT_EQ(textos.Hojas().size(), 0);
}
