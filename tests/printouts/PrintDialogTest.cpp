#include "printouts/frmImprimir.h"

#include "printouts/PrintOutFixture.h"
#include "reports/ReportFormsFixture.h"
#include "values/FileFailure.h"
#include "widgets/StatusBar.h"

#include <QTableView>

namespace {

class PrintDialogTest : public FormasDeInformesTest<Taller> {
  protected:
    BarradeEstadoQMD m_barra;
};

TEST_F(PrintDialogTest, ShowsAndPrintsTheChosenDeclaration) {
    m_taller.Cabecera({{u"410"_s, u"1234"_s}});
    m_taller.clave.periodo = Periodo(2026, 2);
    m_taller.Cabecera({{u"501"_s, u"2"_s}, {u"410"_s, u"777"_s}});
    m_taller.Clientes(2);
    frmImprimir forma(m_taller.proceso, m_entorno, m_barra, false);
    Muestra(forma);
    EXPECT_EQ(m_barra.Ruc() + m_barra.Periodo(), m_taller.clave.ruc.Texto() + u"02/2026"_s);
    auto& grilla = De<QTableView>(forma, u"grdContrib"_s);
    ASSERT_EQ(grilla.model()->rowCount(), 2);
    QTest::keyClick(&grilla, Qt::Key_Down);
    EXPECT_EQ(m_barra.Periodo(), u"01/2026"_s);

    const QPoint celda = grilla.visualRect(grilla.model()->index(1, 0)).center();
    EsperaEnvio(u"1 página"_s);
    AlAbrir({}, [](QWidget& vista) { Clic(vista, u"tlbPrevia_4"_s); });
    QTest::mouseClick(grilla.viewport(), Qt::LeftButton, {}, celda);
    QTest::mouseDClick(grilla.viewport(), Qt::LeftButton, {}, celda);
    EsperaTrabajos();
    EXPECT_TRUE(Impreso().value(0).contains(u"1,234"_s));
    forma.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&forma));

    Clic(forma, u"OptImp_1"_s);
    m_avisos.Espera({Icono::Informacion, u"No existe información de anexos para esta declaración"_s, u"Anexos"_s});
    Clic(forma, u"CmdImprimir_1"_s);
    EXPECT_EQ(m_taller.base.Filas(u"SELECT CodRep FROM SPOOL"_s), QStringList{u"PER006"_s});

    grilla.setFocus();
    QTest::keyClick(&grilla, Qt::Key_Up);
    EsperaEnvio(u"1 página"_s);
    AlAbrir({}, [](QWidget& rango) {
        EXPECT_EQ(rango.windowTitle(), u"Impresión de 2 páginas"_s) << "one more than the head of the annex tells";
        AlAbrir({}, [](QWidget& vista) { Clic(vista, u"tlbPrevia_4"_s); });
        Clic(rango, u"cmdAccion_0"_s);
    });
    Clic(forma, u"CmdImprimir_1"_s);
    const QStringList anexo = Impreso();
    ASSERT_EQ(anexo.size(), 1);
    EXPECT_TRUE(anexo[0].contains(u"NÚÑEZ PEÑA, JOSÉ MARÍA 2 DNI"_s)) << qPrintable(anexo[0]);
    EXPECT_EQ(m_barra.Periodo(), u"02/2026"_s) << "the row stays chosen";
    Clic(forma, u"CmdImprimir_2"_s);
    EXPECT_EQ(m_barra.Ruc(), QString());
}

TEST_F(PrintDialogTest, KeepsCopiesApartAndIsSilentWithoutDeclarations) {
    m_taller.clave.enviada = true;
    {
        frmImprimir vacia(m_taller.proceso, m_entorno, m_barra, true);
        Muestra(vacia);
        Clic(vacia, u"CmdImprimir_0"_s);
        Clic(vacia, u"CmdImprimir_1"_s);
    }
    for (const QString& correl : {u"1"_s, u"2"_s}) {
        m_taller.clave.correl = correl;
        m_taller.Cabecera({{u"410"_s, correl + u"000"_s}});
    }
    frmImprimir forma(m_taller.proceso, m_entorno, m_barra, true);
    Muestra(forma);
    auto& grilla = De<QTableView>(forma, u"grdContrib"_s);
    grilla.setCurrentIndex(grilla.model()->index(1, 0));
    constexpr int kColumnaCopia = 3;
    const QString correl = grilla.model()->index(1, kColumnaCopia).data().toString();
    EsperaEnvio(u"1 página"_s);
    AlAbrir({}, [](QWidget& vista) { Clic(vista, u"tlbPrevia_4"_s); });
    QTest::keyClick(&grilla, Qt::Key_Return);
    EsperaTrabajos();
    const QString hoja = Impreso().value(0);
    EXPECT_TRUE(hoja.contains(u"NRO. CONTROL: 10000001"_s)) << qPrintable(hoja);
    EXPECT_TRUE(hoja.contains(correl + u",000"_s)) << qPrintable(hoja);
    m_taller.proceso.rutaRPT = m_taller.base.Ruta(); // a file is no folder to write into
    const QString ruta = m_taller.base.Ruta() + u"/00000002.PRN"_s;
    AvisosDelPrograma().Espera(FallaDeArchivo(Intento::Escribir, ruta).Texto());
    Clic(forma, u"CmdImprimir_0"_s);
    m_taller.Vacia(); // as another program might
    m_avisos.Espera(u"No existe la declaración del RUC 20990518018 por el período 01/2026."_s);
    Clic(forma, u"CmdImprimir_0"_s);
    EXPECT_EQ(grilla.model()->rowCount(), 0) << "the list still offers what is gone";
}

} // namespace
