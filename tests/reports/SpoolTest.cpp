#include "reports/PagePainter.h"
#include "reports/PdfFile.h"
#include "reports/ReportFixture.h"
#include "reports/SpoolFile.h"
#include "reports/SpoolLines.h"
#include "reports/SpoolReader.h"
#include "reports/SpoolReport.h"
#include "values/Error.h"

#include <QBuffer>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

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

const QByteArray kInforme = "<!nHojas!>3<!/nHojas!>\n<!Orientacion!>V<!/Orientacion!>\n"
                            "pPos|360|350|ÑANDÚ uno|True|16|0|\npCuadro|150|300|1700|1640|0|\npNuevaHoja\n"
                            "pPos|360|350|dos|False|8|1|\npPosVerti|100|100|ab|False|8|1|\npNuevaHoja\n"
                            "pPos|360|350|tres|False|8|2|\npNuevaHoja\n";
const QByteArray kApaisado = "<!Orientacion!>H<!/Orientacion!>\npPos|10|175|acostado|False|8|0|\n";

class Pdf : public testing::Test {
  protected:
    QString Ruta(const QString& nombre) const { return taller.base.Carpeta() + u'/' + nombre; }
    QString Spool(const QString& nombre, const QByteArray& contenido) const {
        EscribeEn(Ruta(nombre), contenido);
        return Ruta(nombre);
    }
    QByteArray Leido() const { return BytesDe(Ruta(u"x.pdf"_s)); }
    void Escribe(const QStringList& spools, const RangoPaginas& rango = {}) const {
        EscribePdf(spools, Ruta(u"x.pdf"_s),
                   {u"Declaración"_s, u"ÑAUPARI"_s, QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5), Qt::UTC)}, rango);
    }

    int cuantos = 1;
    char programa[13] = "reports_test";
    char* argumentos[2] = {programa, nullptr};
    QGuiApplication aplicacion{cuantos, argumentos};
    ProcesoConInformes taller;
};

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
    EXPECT_TRUE(BytesDe(ruta).endsWith("\n \npPos|10|350|a b c d|False|8|1|\n"));

    Libreta libreta;
    InformeSpool::Abre(ruta)->Imprime({}, libreta);
    EXPECT_EQ(libreta.comandos.first(6), comandos);
    EXPECT_EQ(QFile::permissions(ruta) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
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

TEST_F(Pdf, TakesASheetForEachPageAndTurnsItForTheAnnex) {
    Escribe(
        {Spool(u"a.PRN"_s, kInforme), Spool(u"b.PRN"_s, kApaisado), Spool(u"c.PRN"_s, "pPos|1|1|sin más|False|8|0|")});
    const QStringList hojas = QString::fromLatin1(Leido()).split(u'\n').filter(u"/MediaBox [0 0 "_s);
    ASSERT_EQ(hojas.size(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(hojas[i].contains(i == 3 ? u"0 842.000000 595"_s : u"0 595.000000 842"_s)) << qPrintable(hojas[i]);
    Escribe({Spool(u"vacio.PRN"_s, "")});
    EXPECT_EQ(Leido().count("/MediaBox"), 1) << "a report without commands is an empty sheet, not a damaged file";
}

/// The moment is written over the one that the toolkit took: the table of the file's parts must still hold.
TEST_F(Pdf, CarriesTheMomentOfTheClock) {
    Escribe({Spool(u"a.PRN"_s, kInforme)});
    const QByteArray pdf = Leido();
    EXPECT_TRUE(pdf.contains("(D:20260209180405Z)"));
    const QByteArray fin = pdf.sliced(pdf.lastIndexOf("startxref"));
    const qint64 tabla = fin.split('\n')[1].toLongLong();
    ASSERT_EQ(pdf.sliced(tabla, 5), "xref\n");
    const QByteArray entrada = pdf.sliced(tabla).split('\n')[2];
    const QByteArray numero = pdf.sliced(tabla).split('\n')[1].split(' ')[0];
    EXPECT_TRUE(pdf.sliced(entrada.first(10).toLongLong()).startsWith(numero + " 0 obj"));
}

TEST_F(Pdf, LeavesWhatWasThereWhenItFails) {
    EscribeEn(Ruta(u"x.pdf"_s), "el de ayer");
    EXPECT_THROW(Escribe({Spool(u"a.PRN"_s, kInforme), Ruta(u"falta.PRN"_s)}), Error);
    EXPECT_EQ(Leido(), "el de ayer");
    EXPECT_FALSE(QFile::exists(Ruta(u"x.pdf.parcial"_s)));
    for (const QString& carpeta : {Ruta(u"falta"_s), Ruta(u"a.PRN"_s), u"/proc"_s})
        EXPECT_THROW(EscribePdf({Ruta(u"a.PRN"_s)}, carpeta + u"/x.pdf"_s, {}), Error) << qPrintable(carpeta);
}

/// The widths of "Courier New": whatever font stands for it, the columns must end where they were meant to.
TEST_F(Pdf, WritesInAFontOfTheMeantWidth) {
    QFont fuente = FuenteInforme();
    fuente.setPixelSize(160);
    const qreal ancho = QFontMetricsF(fuente).horizontalAdvance(QString(100, u'W'));
    EXPECT_NEAR(ancho, QFontMetricsF(fuente).horizontalAdvance(QString(100, u'i')), 1);
    EXPECT_NEAR(ancho, 9602, 48) << qPrintable(QFontInfo(fuente).family());
}

/// A reason that is too long for the sheet is drawn narrower, or cut: the columns before it stand where those of the
/// other lines do, and nothing runs off the sheet.
TEST_F(Pdf, KeepsTheColumnsOfALineThatIsTooLong) {
    const auto pintada = [](const QString& motivo) {
        QImage hoja(TamanoHoja(false) / 10, QImage::Format_Grayscale8);
        hoja.fill(Qt::white);
        QPainter pintor(&hoja);
        const QString columnas = QString(20, u' ') + u"06 20991000004 P001 30101"_s.leftJustified(29);
        PintorPagina(pintor, 0.1, TamanoHoja(false).width()).Pinta(TextoEnPagina{10, 175, columnas + motivo});
        return hoja;
    };
    const auto franja = [](const QImage& hoja, int desde, int hasta) { return hoja.copy(desde, 0, hasta - desde, 80); };
    constexpr int kMotivo = 36 + 1 + 49 * 96 / 10; // margin, place of the line, 49 characters
    constexpr int kMargenDerecho = (11906 - 360) / 10;
    const QImage corta = pintada(u"M"_s);
    for (const int largo : {68, 107, 400}) {
        const QImage larga = pintada(QString(largo, u'M'));
        EXPECT_EQ(franja(larga, 0, kMotivo), franja(corta, 0, kMotivo)) << largo;
        EXPECT_NE(franja(larga, kMargenDerecho - 30, kMargenDerecho),
                  franja(corta, kMargenDerecho - 30, kMargenDerecho));
        EXPECT_EQ(franja(larga, kMargenDerecho + 2, larga.width()), franja(corta, kMargenDerecho + 2, corta.width()));
    }
}
