#include "reports/frmImpxPag.h"
#include "reports/frmPreview.h"

#include "reports/PageRange.h"
#include "reports/ReportFormsFixture.h"
#include "values/FileFailure.h"

#include <QScrollBar>
#include <QSpinBox>

namespace {

using ReportFormsTest = FormasDeInformesTest<ProcesoConInformes>;

TEST_F(ReportFormsTest, ThePreviewMovesThroughItsPagesByKeysAndButtons) {
    frmPreview vista(m_entorno, Reporte(5));
    Muestra(vista);
    auto& fondo = De(vista, u"picFondo"_s);
    QCoreApplication::processEvents(); // the last of its layout
    const QImage primera = fondo.grab().toImage();

    const std::pair<int, int> pasos[] = {{Qt::Key_PageUp, 1},   {Qt::Key_PageDown, 2}, {Qt::Key_End, 5},
                                         {Qt::Key_PageDown, 5}, {Qt::Key_PageUp, 4},   {Qt::Key_Home, 1}};
    for (const auto& [tecla, pagina] : pasos) {
        QTest::keyClick(vista.focusWidget(), Qt::Key(tecla));
        EXPECT_EQ(Pagina(vista), pagina);
        EXPECT_EQ(fondo.grab().toImage() == primera, pagina == 1);
    }
    De<QComboBox>(vista, u"cmbAmpliacion"_s).setCurrentText(u"200 %"_s);
    auto& barra = De<QScrollBar>(vista, u"vsbPic"_s);
    QTest::keyClick(&fondo, Qt::Key_Down);
    EXPECT_GT(barra.value(), 0);
    EXPECT_NE(fondo.grab().toImage(), primera);
    Clic(vista, u"tlbPrevia_3"_s);
    EXPECT_EQ(barra.value(), 0) << "another page begins at its top";
    Clic(vista, u"tlbPrevia_2"_s);
    EXPECT_EQ(Pagina(vista), 1);
    QTest::keyClick(&vista, Qt::Key_Escape);
    EXPECT_FALSE(vista.isVisible());
}

TEST_F(ReportFormsTest, PrintsTheWholeReportOrItsRange) {
    const std::pair<RangoPaginas, QStringList> casos[] = {{{}, {u"hoja 1"_s, u"hoja 2"_s, u"hoja 3"_s, u"hoja 4"_s}},
                                                          {{true, 3, 3}, {u"hoja 3"_s}},
                                                          {{true, 3, 99}, {u"hoja 3"_s, u"hoja 4"_s}}};
    for (const auto& [rango, hojas] : casos) {
        frmPreview vista(m_entorno, Reporte(4, rango));
        Muestra(vista);
        EXPECT_EQ(De<QSpinBox>(vista, u"txtPagina"_s).maximum(), 4) << "all pages can be looked at";
        EsperaEnvio(CuantasPaginas(static_cast<int>(hojas.size())));
        QTest::keyClick(&vista, Qt::Key_P, Qt::ControlModifier);
        EsperaTrabajos();
        EXPECT_EQ(Impreso(), hojas);
    }
    EsperaEnvio(u"2 páginas"_s);
    VerReporte(m_entorno, Reporte(2), ModoReporte::Impresora, m_ventana);
    EsperaTrabajos();
    EXPECT_EQ(Impreso().size(), 2);
    m_avisos.Espera({Icono::Critico, u"El reporte no llega a la página 3: tiene 2 páginas."_s, u"Error al Imprimir"_s});
    VerReporte(m_entorno, Reporte(2, {true, 3, 9}), ModoReporte::Impresora, m_ventana);
    EsperaTrabajos();
    EXPECT_FALSE(QFile::exists(Ruta(u"impreso.pdf"_s))) << "not even an empty sheet";
}

TEST_F(ReportFormsTest, SaysWhyNothingIsPrintedAndOffersThePdfOfTheRange) {
    const ColaImpresion cerrada{u"sala"_s, u"Láser"_s, true, EstadoCola::NoRecibe};
    const struct {
        bool responde;
        QList<ColaImpresion> colas;
        QString rechazo, motivo;
    } casos[] = {
        {false, {}, {}, u"El servicio de impresión del sistema no responde: está detenido o no está instalado."_s},
        {true, {}, {}, u"No hay ninguna impresora instalada."_s},
        {true, {cerrada}, {}, u"La impresora «Láser (sala)» no recibe trabajos."_s},
        {true, m_servicio->colas, u"Forbidden"_s, u"La impresora «sala» no recibió el reporte: Forbidden"_s}};
    for (const auto& [responde, colas, rechazo, motivo] : casos) {
        m_servicio->responde = responde;
        m_servicio->colas = colas;
        m_servicio->rechazo = rechazo;
        for (const Respuesta respuesta : {Respuesta::No, Respuesta::Si}) {
            m_avisos.EsperaPregunta(motivo + u"\n¿Desea guardar el reporte como PDF?"_s, respuesta);
            if (respuesta == Respuesta::Si) {
                m_archivos.respuesta = Ruta(u"guardado.pdf"_s);
                m_avisos.Espera(
                    u"Se guardó en «%1»: 1 página."_s.arg(QDir::toNativeSeparators(Ruta(u"guardado.pdf"_s))));
            }
            VerReporte(m_entorno, Reporte(3, {true, 2, 2}), ModoReporte::Impresora, m_ventana);
            EsperaTrabajos();
        }
        EXPECT_EQ(Impreso(u"guardado.pdf"_s), QStringList{u"hoja 2"_s}) << qPrintable(motivo);
    }
}

TEST_F(ReportFormsTest, SeveralPrintersAreOfferedWithTheDefaultOneChosen) {
    m_servicio->colas = {{u"sala"_s, {}, false, EstadoCola::Lista},
                         {u"matricial"_s, {}, false, EstadoCola::Detenida},
                         {u"laser"_s, {}, true, EstadoCola::Lista}};
    const std::pair<QList<Qt::Key>, QString> casos[] = {
        {{Qt::Key_Return}, u"Se envió a la impresora «laser»: 2 páginas."_s},
        {{Qt::Key_Up, Qt::Key_Return},
         u"La impresora «matricial» está detenida. El reporte (2 páginas) espera en su cola y saldrá cuando se reanude."_s}};
    for (const auto& [teclas, dicho] : casos) {
        AlAbrir(u"frmImpresora"_s, [teclas = teclas](QWidget& eleccion) {
            for (const Qt::Key tecla : teclas)
                QTest::keyClick(eleccion.focusWidget(), tecla);
        });
        m_avisos.Espera(dicho);
        VerReporte(m_entorno, Reporte(2), ModoReporte::Impresora, m_ventana);
        EsperaTrabajos();
        EXPECT_EQ(Impreso().size(), 2);
    }
    AlAbrir(u"frmImpresora"_s, [](QWidget& eleccion) { Clic(eleccion, u"CmdImpresora_2"_s); });
    VerReporte(m_entorno, Reporte(2), ModoReporte::Impresora, m_ventana);
    EsperaTrabajos();
    EXPECT_FALSE(QFile::exists(Ruta(u"impreso.pdf"_s)));
    AlAbrir(u"frmImpresora"_s, [this](QWidget& eleccion) {
        m_archivos.respuesta = Ruta(u"guardado.pdf"_s);
        m_avisos.Espera(u"Se guardó en «%1»: 2 páginas."_s.arg(QDir::toNativeSeparators(Ruta(u"guardado.pdf"_s))));
        Clic(eleccion, u"CmdImpresora_1"_s);
    });
    VerReporte(m_entorno, Reporte(2), ModoReporte::Impresora, m_ventana);
    EsperaTrabajos();
    EXPECT_EQ(Impreso(u"guardado.pdf"_s).size(), 2);
}

TEST_F(ReportFormsTest, SurvivesAMissingFileAndTenMegabytesOfRubbish) {
    const Mensaje falta{Icono::Critico, u"Archivo Físico del Reporte no Existe"_s, u"Error al Imprimir"_s};
    m_avisos.Espera(falta);
    frmPreview sinArchivo(m_entorno, {u"b.PRN"_s, {}, {}});
    Muestra(sinArchivo);
    EXPECT_FALSE(De(sinArchivo, u"tlbPrevia_4"_s).isEnabled());
    sinArchivo.close();

    frmPreview perdido(m_entorno, Reporte(2));
    Muestra(perdido);
    EscribeEn(m_taller.proceso.rutaRPT + u"/a.PRN"_s,
              QByteArray("pPos|99999999|-5|x|True|32000|3|\npPos|a|b|c|d|e|-7|\n<!nHojas!>-1\npCuadro|1|\xff\n"
                         "pPos|1|1|nada|False|0|3|\npPos|1|1|menos|False|-8|3|\npCuadro|-999999|1|999999|2|3|\n")
                  .repeated(70'000));
    AlAbrir(u"frmPreview"_s, [this](QWidget& basura) {
        QTest::keyClick(&basura, Qt::Key_End);
        EXPECT_EQ(Pagina(basura), 4);
        EsperaEnvio(u"1 página"_s);
        Clic(basura, u"tlbPrevia_4"_s);
        EXPECT_EQ(Impreso().size(), 1);
    });
    MuestraReporte(m_entorno, {u"a.PRN"_s, {}, {}}, m_ventana);
    QFile::remove(m_taller.proceso.rutaRPT + u"/a.PRN"_s);
    m_avisos.Espera(falta);
    Clic(perdido, u"tlbPrevia_4"_s);
    perdido.close();
}

TEST_F(ReportFormsTest, KeepsTheWholeReportAsPdf) {
    frmPreview vista(m_entorno, Reporte(3, {true, 2, 2}));
    Muestra(vista);
    AvisosDelPrograma().Espera(FallaDeArchivo(Intento::Escribir, u"/proc/x.pdf"_s).Texto());
    m_avisos.Espera(u"Se guardó en «%1»: 3 páginas."_s.arg(QDir::toNativeSeparators(Ruta(u"guardado.pdf"_s))));
    for (const QString& ruta : {QString(), u"/proc/x.pdf"_s, Ruta(u"guardado.pdf"_s)}) {
        m_archivos.respuesta = ruta;
        Clic(vista, u"CmdPdf"_s);
        vista.activateWindow();
    }
    EXPECT_EQ(QFileInfo(m_archivos.ultimo.sugerido).fileName(), u"Reporte.pdf"_s);
    EXPECT_EQ(Impreso(u"guardado.pdf"_s), (QStringList{u"hoja 1"_s, u"hoja 2"_s, u"hoja 3"_s}));
}

TEST_F(ReportFormsTest, TheRangeIsAskedForFromSixteenPagesOn) {
    AlAbrir(u"frmPreview"_s, [](QWidget&) {});
    MuestraReporte(m_entorno, Reporte(15, {true, 1, 1}), m_ventana);
    AlAbrir(u"frmImpxPag"_s, [this](QWidget& forma) {
        EXPECT_EQ(forma.windowTitle(), u"16 páginas"_s);
        auto& desde = De<QLineEdit>(forma, u"txtPagDesde"_s);
        auto& hasta = De<QLineEdit>(forma, u"txtPagHasta"_s);
        EXPECT_EQ(hasta.text(), u"16"_s);
        desde.selectAll();
        QTest::keyClicks(&desde, u"a-9"_s);
        QTest::keyClick(&desde, Qt::Key_Return);
        EXPECT_EQ(desde.text(), u"9"_s);
        EXPECT_EQ(forma.focusWidget(), &hasta);
        hasta.selectAll();
        QTest::keyClicks(&hasta, u"8"_s);
        m_avisos.Espera({Icono::Critico, u"Página de Inicio debe ser mayor a página de Fin."_s, u"16 páginas"_s});
        Clic(forma, u"cmdAccion_0"_s);
        EXPECT_EQ(forma.focusWidget(), &hasta);
        hasta.selectAll();
        QTest::keyClicks(&hasta, u"10"_s);
        AlAbrir({}, [this](QWidget& vista) {
            EXPECT_EQ(De<QSpinBox>(vista, u"txtPagina"_s).maximum(), 16);
            EsperaEnvio(u"2 páginas"_s);
            Clic(vista, u"tlbPrevia_4"_s);
        });
        Clic(forma, u"cmdAccion_0"_s);
        EXPECT_EQ(Impreso(), (QStringList{u"hoja 9"_s, u"hoja 10"_s}));
        Clic(forma, u"cmdAccion_1"_s);
        EXPECT_FALSE(forma.isVisible());
    });
    MuestraReporte(m_entorno, Reporte(16), m_ventana);
}

/// The pages that the head of an annex tells are an estimate.
TEST_F(ReportFormsTest, TheOfferedRangeReachesTheReportsRealEnd) {
    const std::tuple<QString, QString, QStringList> casos[] = {{u"2"_s, {}, {u"hoja 2"_s, u"hoja 3"_s, u"hoja 4"_s}},
                                                               {u"2"_s, u"3"_s, {u"hoja 2"_s, u"hoja 3"_s}},
                                                               {u"4"_s, {}, {u"hoja 4"_s}},
                                                               {u"4"_s, u"4"_s, {u"hoja 4"_s}}};
    for (const auto& [desde, hasta, hojas] : casos) {
        frmImpxPag forma(m_entorno, Reporte(4), {3, TituloImpresion(3)});
        Muestra(forma);
        EXPECT_EQ(De<QLineEdit>(forma, u"txtPagHasta"_s).text(), u"3"_s);
        for (const auto& [campo, texto] : {std::pair{u"txtPagDesde"_s, desde}, {u"txtPagHasta"_s, hasta}}) {
            De<QLineEdit>(forma, campo).selectAll();
            QTest::keyClicks(&De(forma, campo), texto);
        }
        EsperaEnvio(CuantasPaginas(static_cast<int>(hojas.size())));
        AlAbrir({}, [](QWidget& vista) { Clic(vista, u"tlbPrevia_4"_s); });
        Clic(forma, u"cmdAccion_0"_s);
        EXPECT_EQ(Impreso(), hojas);
    }
}

} // namespace
