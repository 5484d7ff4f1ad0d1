#include "reports/PagePainter.h"
#include "reports/PdfFile.h"
#include "reports/ReportFixture.h"
#include "support/ProgressScript.h"
#include "values/Error.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>

#include <cmath>
#include <future>

namespace {

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
    int Escribe(const QStringList& spools, const RangoPaginas& rango = {}) const {
        SinAvance nadie;
        return Escribe(spools, rango, nadie);
    }
    int Escribe(const QStringList& spools, const RangoPaginas& rango, Avance& avance) const {
        return EscribePdf(spools, Ruta(u"x.pdf"_s),
                          {u"Declaración"_s, u"ÑAUPARI"_s, QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5), Qt::UTC)},
                          rango, avance);
    }
    /// What a tool that knows nothing of the writer makes of the PDF; null when it finds a fault.
    QByteArray SegunOtro(const QString& herramienta, const QStringList& opciones,
                         const QStringList& detras = {}) const {
        QProcess proceso;
        proceso.start(herramienta, opciones + QStringList{Ruta(u"x.pdf"_s)} + detras);
        const bool bien = proceso.waitForFinished() && proceso.exitCode() == 0;
        EXPECT_EQ(proceso.readAllStandardError(), QByteArray());
        return bien ? proceso.readAllStandardOutput() : QByteArray();
    }

    QString Texto() const { return QString::fromUtf8(SegunOtro(u"pdftotext"_s, {u"-layout"_s}, {u"-"_s})); }

    int cuantos = 1;
    char programa[13] = "reports_test";
    char* argumentos[2] = {programa, nullptr};
    QGuiApplication aplicacion{cuantos, argumentos};
    ProcesoConInformes taller;
};

/// The page as a screen shows it, with so many dots an inch.
QImage EnPantalla(const QString& spool, int porPulgada) {
    const auto informe = InformeSpool::Abre(spool);
    QImage hoja(TamanoHoja(informe->Cabecera().apaisado) * porPulgada / 1440, QImage::Format_Grayscale8);
    hoja.fill(Qt::white);
    QPainter pintor(&hoja);
    PintaPagina(pintor, *informe, 0, hoja.width());
    return hoja;
}

/// The ink of each square of a picture: what is left when it is shrunk so far that the edges of letters don't count.
QImage Tinta(const QImage& hoja, QSize cuadros) {
    return hoja.convertToFormat(QImage::Format_Grayscale8)
        .scaled(cuadros, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

int MayorDiferencia(const QImage& a, const QImage& b) {
    int mayor = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            mayor = std::max(mayor, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
    }
    return mayor;
}

} // namespace

TEST_F(Pdf, TakesASheetForEachPageAndTurnsItForTheAnnex) {
    EXPECT_EQ(Escribe({Spool(u"a.PRN"_s, kInforme), Spool(u"b.PRN"_s, kApaisado),
                       Spool(u"c.PRN"_s, "pPos|1|1|sin más|False|8|0|")}),
              5);
    const QStringList hojas = QString::fromLatin1(Leido()).split(u'\n').filter(u"/MediaBox [0 0 "_s);
    ASSERT_EQ(hojas.size(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(hojas[i].contains(i == 3 ? u"0 842 595]"_s : u"0 595 842]"_s)) << qPrintable(hojas[i]);
    EXPECT_EQ(Escribe({Spool(u"vacio.PRN"_s, "")}), 1);
    EXPECT_EQ(Leido().count("/MediaBox"), 1) << "a report without commands is an empty sheet, not a damaged file";
    EXPECT_EQ(Escribe({Ruta(u"a.PRN"_s)}, {true, 2, 2}), 1);
    EXPECT_EQ(Texto().simplified(), u"a b dos"_s);
}

TEST_F(Pdf, TellsItsTitleAndMomentAndWhereItsPartsLie) {
    QByteArray muchas;
    for (int i = 0; i < 250; ++i)
        muchas +=
            "pPos|500|500|hoja " + QByteArray::number(i + 1) + "|False|8|" + QByteArray::number(i) + "|\npNuevaHoja\n";
    Escribe({Spool(u"a.PRN"_s, muchas)});
    const QByteArray pdf = Leido();
    const QByteArray fin = pdf.sliced(pdf.lastIndexOf("startxref"));
    const QList<QByteArray> tabla = pdf.sliced(fin.split('\n')[1].toLongLong()).split('\n');
    ASSERT_EQ(tabla[0], "xref");
    const auto objetos = tabla[1].split(' ')[1].toLongLong();
    for (qsizetype i = 1; i < objetos; ++i) {
        const qint64 lugar = tabla[2 + i].first(10).toLongLong();
        EXPECT_TRUE(pdf.sliced(lugar).startsWith(QByteArray::number(i) + " 0 obj\n")) << i;
    }
    const auto dice = QString::fromUtf8(SegunOtro(u"pdfinfo"_s, {u"-isodates"_s}));
    for (const QString& dato : {u"Title: Declaración"_s, u"Author: ÑAUPARI"_s, u"Creator: xa518"_s,
                                u"CreationDate: 2026-02-09T18:04:05Z"_s, u"Pages: 250"_s})
        EXPECT_TRUE(dice.simplified().contains(dato)) << qPrintable(dice);
    const QStringList hojas = Texto().simplified().split(u"hoja "_s);
    ASSERT_EQ(hojas.size(), 251);
    for (int i = 1; i <= 250; ++i)
        EXPECT_EQ(hojas[i].trimmed(), QString::number(i));
}

/// More characters than a byte can number, and among them all that a string of the format treats apart.
TEST_F(Pdf, GivesItsTextBackLetterByLetter) {
    QStringList lineas;
    for (char16_t desde = 0x20; desde < 0x180; desde += 0x20) {
        QString linea = u"|x"_s;
        for (char16_t c = desde; c < desde + 0x20; ++c) {
            const bool cabe = QChar(c).isPrint() && c != u'|' && c != u' ' && c != 0xa0 && c != 0xad;
            linea += cabe ? QChar(c) : QChar(u'x');
        }
        lineas.append(linea.sliced(1));
    }
    lineas.append(u"€…–“ÑANDÚ”Ωж(\\)"_s);
    QByteArray spool;
    for (const bool negrita : {false, true}) {
        for (qsizetype i = 0; i < lineas.size(); ++i)
            spool += u"pPos|100|%1|%2|%3|9|0|\n"_s.arg((i + 1) * 300 + (negrita ? 6000 : 0))
                         .arg(lineas[i], negrita ? u"True"_s : u"False"_s)
                         .toUtf8();
    }
    Escribe({Spool(u"a.PRN"_s, spool)});
    const QStringList leidas = Texto().simplified().split(u' ');
    EXPECT_EQ(leidas, lineas + lineas);
    const QString letras = QString::fromLatin1(SegunOtro(u"pdffonts"_s, {}));
    EXPECT_EQ(letras.count(QRegularExpression(u"CID TrueType +Identity-H +yes yes yes"_s)), 2)
        << "both inside, in part, and with what their codes stand for\n"
        << qPrintable(letras);
}

TEST_F(Pdf, ShowsWhatTheScreenShows) {
    constexpr int kPuntosPorPulgada = 144;
    const QString largo = QString(20, u' ') + u"06 20991000004 P001 30101"_s.leftJustified(29) + QString(90, u'M');
    const QByteArray hoja = "<!Orientacion!>H<!/Orientacion!>\npPos|360|350|ÑANDÚ Güé (uno)|True|16|0|\n"
                            "pCuadro|150|300|1700|1640|0|\npCuadro|180|2000|180|2270|0|\n"
                            "pPosVerti|100|2500|de pie ñ|True|8|0|\npPos|-50|4500|Áéíóú %&@ 0123456789|False|30|0|\n"
                            "pPos|10|5500|" +
                            largo.repeated(2).toUtf8() +
                            "|False|8|0|\n"
                            "pCuadro|8000|7000|15900|9000|0|\npPos|8100|7100|detrás del resto|False|12|0|\n";
    Escribe({Spool(u"a.PRN"_s, hoja)});
    QImage enPdf;
    ASSERT_TRUE(
        enPdf.loadFromData(SegunOtro(u"pdftoppm"_s, {u"-gray"_s, u"-r"_s, QString::number(kPuntosPorPulgada)})));
    const QSize cuadros = enPdf.size() / 12;
    const QImage tintaPdf = Tinta(enPdf, cuadros);
    const QImage tintaPantalla = Tinta(EnPantalla(Ruta(u"a.PRN"_s), kPuntosPorPulgada), cuadros);
    EXPECT_LT(MayorDiferencia(tintaPdf, tintaPantalla), 40);
}

TEST_F(Pdf, LeavesWhatWasThereWhenItFails) {
    EscribeEn(Ruta(u"x.pdf"_s), "el de ayer");
    EXPECT_THROW(Escribe({Spool(u"a.PRN"_s, kInforme), Ruta(u"falta.PRN"_s)}), Error);
    AvanceDePrueba avance([](qint64 hecho, qint64 total) {
        EXPECT_EQ(total, 3);
        if (hecho == 2)
            throw Detenido();
    });
    EXPECT_THROW(Escribe({Ruta(u"a.PRN"_s)}, {}, avance), Detenido);
    EXPECT_EQ(Leido(), "el de ayer");
    EXPECT_FALSE(QFile::exists(Ruta(u"x.pdf.parcial"_s)));
    for (const QString& carpeta : {Ruta(u"falta"_s), Ruta(u"a.PRN"_s), u"/proc"_s})
        EXPECT_THROW(EscribePdf({Ruta(u"a.PRN"_s)}, carpeta + u"/x.pdf"_s, {}), Error) << qPrintable(carpeta);
}

TEST_F(Pdf, IsWrittenInAnyThread) {
    Spool(u"a.PRN"_s, kInforme);
    auto trabajo = std::async(std::launch::async, [this] { return Escribe({Ruta(u"a.PRN"_s)}); });
    EXPECT_EQ(trabajo.get(), 3);
    EXPECT_EQ(Texto().simplified(), u"ÑANDÚ uno a b dos tres"_s);
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
