#include "reports/PagePainter.h"
#include "reports/PdfFile.h"
#include "reports/ReportFixture.h"
#include "values/Error.h"

#include <QFile>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gmock/gmock.h>

#include "Printers.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QByteArray kInforme = "<!nHojas!>3<!/nHojas!>\n<!Orientacion!>V<!/Orientacion!>\n"
                            "pPos|360|350|ÑANDÚ uno|True|16|0|\npCuadro|150|300|1700|1640|0|\npNuevaHoja\n"
                            "pPos|360|350|dos|False|8|1|\npPosVerti|100|100|ab|False|8|1|\npNuevaHoja\n"
                            "pPos|360|350|tres|False|8|2|\npNuevaHoja\n";
const QByteArray kApaisado = "<!Orientacion!>H<!/Orientacion!>\npPos|10|175|acostado|False|8|0|\n";

class Pdf : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char nombre[] = "reports_test";
        static char* argv[] = {nombre, nullptr};
        aplicacion = std::make_unique<QGuiApplication>(argc, argv);
    }
    static void TearDownTestSuite() { aplicacion.reset(); }

    QString Ruta(const QString& nombre) const { return taller.Carpeta() + u'/' + nombre; }
    QString Spool(const QString& nombre, const QByteArray& contenido) const {
        EscribeEn(Ruta(nombre), contenido);
        return Ruta(nombre);
    }
    QByteArray Leido() const {
        QFile archivo(Ruta(u"x.pdf"_s));
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    }
    /// Width and height of every sheet, in points.
    QStringList Hojas() const {
        static const QRegularExpression caja(u"/MediaBox \\[0(?:\\.0*)? 0(?:\\.0*)? (\\d+)[^ ]* (\\d+)"_s);
        QStringList hojas;
        auto halladas = caja.globalMatch(QString::fromLatin1(Leido()));
        while (halladas.hasNext()) {
            const QRegularExpressionMatch hallada = halladas.next();
            hojas.append(hallada.captured(1) + u'x' + hallada.captured(2));
        }
        return hojas;
    }
    void Escribe(const QStringList& spools, const RangoPaginas& rango = {}) const {
        EscribePdf(spools, Ruta(u"x.pdf"_s),
                   {u"Declaración"_s, u"ÑAUPARI"_s, QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5), Qt::UTC)}, rango);
    }

    static std::unique_ptr<QGuiApplication> aplicacion;
    Taller taller;
};

std::unique_ptr<QGuiApplication> Pdf::aplicacion;

} // namespace

TEST_F(Pdf, TakesASheetForEachPageAndTurnsItForTheAnnex) {
    Escribe(
        {Spool(u"a.PRN"_s, kInforme), Spool(u"b.PRN"_s, kApaisado), Spool(u"c.PRN"_s, "pPos|1|1|sin más|False|8|0|")});
    EXPECT_THAT(Hojas(), ElementsAre(u"595x842"_s, u"595x842"_s, u"595x842"_s, u"842x595"_s, u"595x842"_s));
    Escribe({Ruta(u"a.PRN"_s)}, {true, 3, 3});
    EXPECT_THAT(Hojas(), ElementsAre(u"595x842"_s));
    Escribe({Spool(u"vacio.PRN"_s, "")});
    EXPECT_EQ(Hojas().size(), 1) << "a report without commands is an empty sheet, not a damaged file";
}

TEST_F(Pdf, CarriesItsTitleItsAuthorAndTheMomentOfTheClock) {
    Escribe({Spool(u"a.PRN"_s, kInforme)});
    const QByteArray pdf = Leido();
    const auto en16 = [](const QString& texto) {
        QByteArray hex = "<feff";
        for (const QChar c : texto)
            hex += QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
        return hex + '>';
    };
    EXPECT_TRUE(pdf.contains("/Title " + en16(u"Declaración"_s)));
    EXPECT_TRUE(pdf.contains("/Author " + en16(u"ÑAUPARI"_s)));
    EXPECT_TRUE(pdf.contains("(D:20260209180405Z)"));
    EXPECT_TRUE(pdf.contains("/FontFile2"));
    const QByteArray fin = pdf.sliced(pdf.lastIndexOf("startxref"));
    const qint64 tabla = fin.split('\n')[1].toLongLong();
    ASSERT_EQ(pdf.sliced(tabla, 5), "xref\n");
    const QByteArray entrada = pdf.sliced(tabla).split('\n')[2];
    const QByteArray numero = pdf.sliced(tabla).split('\n')[1].split(' ')[0];
    EXPECT_TRUE(pdf.sliced(entrada.first(10).toLongLong()).startsWith(numero + " 0 obj"));
}

TEST_F(Pdf, HoldsTextThatCanBeSearched) {
    const QString pdftotext = QStandardPaths::findExecutable(u"pdftotext"_s);
    ASSERT_FALSE(pdftotext.isEmpty()) << "pdftotext is not installed";
    Escribe({Spool(u"a.PRN"_s, kInforme), Spool(u"b.PRN"_s, kApaisado)});
    QProcess programa;
    programa.start(pdftotext, {Ruta(u"x.pdf"_s), u"-"_s});
    ASSERT_TRUE(programa.waitForFinished());
    EXPECT_EQ(programa.exitCode(), 0);
    const QString texto = QString::fromUtf8(programa.readAllStandardOutput());
    for (const QString& palabra : {u"ÑANDÚ uno"_s, u"dos"_s, u"tres"_s, u"acostado"_s})
        EXPECT_TRUE(texto.contains(palabra)) << qPrintable(palabra);
}

TEST_F(Pdf, LeavesWhatWasThereWhenItFails) {
    EscribeEn(Ruta(u"x.pdf"_s), "el de ayer");
    EXPECT_THROW(Escribe({Spool(u"a.PRN"_s, kInforme), Ruta(u"falta.PRN"_s)}), Error);
    EXPECT_EQ(Leido(), "el de ayer");
    EXPECT_FALSE(QFile::exists(Ruta(u"x.pdf.parcial"_s)));
    EXPECT_THROW(EscribePdf({Ruta(u"a.PRN"_s)}, Ruta(u"falta/x.pdf"_s), {}), Error);
}

TEST_F(Pdf, SurvivesWhatADamagedFileAsksFor) {
    Escribe(
        {Spool(u"a.PRN"_s, "pPos|999999|-999999|lejos|False|8|0|\npPos|1|1|enorme|False|32000|0|\n"
                           "pPos|1|1|nada|False|0|0|\npPos|1|1|menos|False|-8|0|\npCuadro|-999999|1|999999|2|0|\n")});
    EXPECT_EQ(Hojas().size(), 1);
}

/// The widths of "Courier New": whatever font stands for it, the columns must end where they were meant to.
TEST_F(Pdf, WritesInAFontOfTheMeantWidth) {
    QFont fuente = FuenteInforme();
    fuente.setPixelSize(160);
    const qreal ancho = QFontMetricsF(fuente).horizontalAdvance(QString(100, u'W'));
    EXPECT_NEAR(ancho, QFontMetricsF(fuente).horizontalAdvance(QString(100, u'i')), 1);
    EXPECT_NEAR(ancho, 9602, 48) << qPrintable(QFontInfo(fuente).family());
}

TEST_F(Pdf, PaintsAPageWithItsBoxesAtTheirTwips) {
    InformeSpool informe(std::make_unique<QFile>(Spool(u"a.PRN"_s, kInforme)));
    EXPECT_EQ(informe.Paginas(), 1) << "a device that isn't open reads as an empty report";
    const auto abierto = InformeSpool::Abre(Ruta(u"a.PRN"_s));
    QImage hoja(TamanoHoja(false) / 10, QImage::Format_RGB32);
    hoja.fill(Qt::white);
    QPainter pintor(&hoja);
    PintaPagina(pintor, *abierto, 0, hoja.width());
    pintor.end();
    const auto negro = [&](int x, int y) { return hoja.pixelColor((x + 360) / 10, (y + 360) / 10).lightness() < 128; };
    EXPECT_TRUE(negro(150, 1000) && negro(1700, 1000) && negro(900, 300) && negro(900, 1640));
    EXPECT_FALSE(negro(900, 1500));
    bool tinta = false;
    for (int x = 360; x < 360 + 9 * 192; x += 10)
        tinta = tinta || negro(x, 500);
    EXPECT_TRUE(tinta) << "the text stands under the place given, not over it";
}
