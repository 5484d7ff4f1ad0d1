#include "reports/PagePainter.h"
#include "reports/PdfFile.h"
#include "reports/ReportFixture.h"
#include "values/Error.h"

#include <QFile>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QRegularExpression>

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
    QByteArray Leido() const { return BytesDe(Ruta(u"x.pdf"_s)); }
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
