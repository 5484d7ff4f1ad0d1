#include "app/MDIFrm.h"

#include "app/AppFixture.h"
#include "family/Configuration.h"
#include "family/HelpBook.h"
#include "family/Startup.h"
#include "form518/Form0518.h"
#include "widgets/NoticeBoxes.h"
#include "widgets/StatusBar.h"

#include <QAction>
#include <QApplication>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QToolBar>

namespace {

class MainWindowTest : public ModuloDePrueba {
  protected:
    void SetUp() override {
        Dialogos dialogos;
        dialogos.declaracion = [](BarradeEstadoQMD&, const AperturaPedida& pedida) {
            EXPECT_FALSE(pedida.elegida);
            QDialog forma(pedida.padre);
            forma.setObjectName(u"Frm518"_s);
            pedida.muestra(forma);
        };
        dialogos.impresion = [this](BarradeEstadoQMD&, bool enviadas, QWidget* padre) {
            return Falso(enviadas ? u"frmImprimir sent"_s : u"frmImprimir"_s, padre);
        };
        ventana = std::make_unique<MDIFrm>(proceso, avisos, perfil, dialogos);
    }
    void Carga() {
        ASSERT_TRUE(ventana->Carga());
        ASSERT_TRUE(QTest::qWaitForWindowActive(ventana.get()));
    }
    /// What another room's form is to the window: a dialog that opens under the hourglass.
    std::unique_ptr<QDialog> Falso(const QString& nombre, QWidget* padre) {
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
        auto forma = std::make_unique<QDialog>(padre);
        forma->setObjectName(nombre);
        return forma;
    }
    void Boton(int indice) const {
        const auto& barra = De<QToolBar>(*ventana, "Toolbar1");
        QTest::mouseClick(barra.widgetForAction(barra.actions().at(indice - 1)), Qt::LeftButton);
    }

    std::unique_ptr<MDIFrm> ventana;
};

TEST_F(MainWindowTest, TellsAFailedOpeningAboveTheEmptyWindowAndEnds) {
    avisos.AlMostrar([this] { EXPECT_TRUE(ventana->isVisible()); });
    auto otro = Bloquea();
    avisos.Espera({Icono::Ninguno, u" 3051- Base esta bloqueda"_s, u"Error de Conección"_s});
    EXPECT_FALSE(ventana->Carga());
    otro.reset();

    perfil.Escribe(kSeccionOpciones, u"DBName", u"FALTA.DB");
    QString esperado;
    try {
        (void)Base::Abre(base.Carpeta() + u"/FALTA.DB"_s);
    } catch (const ErrorBase& falla) {
        esperado = falla.Texto() + u"\n 3024"_s;
    }
    avisos.Espera({Icono::Ninguno, esperado, u"Error de Conección"_s});
    EXPECT_FALSE(ventana->Carga());
    EXPECT_EQ(proceso.baseDatos, nullptr);
}

/// In this order: the print of the menu goes by the command before it.
TEST_F(MainWindowTest, CommandsOpenTheirFormForWhatTheyMean) {
    Carga();
    const std::pair<QString, QString> casos[] = {
        // a menu item, or a position of the toolbar; the form, with its title where two commands open it
        {u"mnuImprimir"_s, u"frmImprimir"_s},
        {u"mnuModificarE"_s, u"FrmContAbrirE Registrar número de orden"_s},
        {u"mnuImprimir"_s, u"frmImprimir sent"_s},
        {u"mnuNueva"_s, u"Frm518"_s},
        {u"mnuImprimir"_s, u"frmImprimir"_s},
        {u"mnuEliminarE"_s, u"FrmContAbrirE Eliminar Declaraciones Enviadas"_s},
        {u"mnuImprimir"_s, u"frmImprimir sent"_s},
        {u"4"_s, u"frmImprimir"_s},
        {u"mnuImprimir"_s, u"frmImprimir"_s},
        {u"mnuImprimirE"_s, u"frmImprimir sent"_s},
        {u"mnuBancos"_s, u"FrmConsultas Bancos"_s},
        {u"mnuAcercade"_s, u"frmAcercade Acerca de Consola Orvel de Presentaciones"_s},
        {u"6"_s, {}},
        {u"9"_s, {}},
        {u"mnuImprimir"_s, u"frmImprimir sent"_s},
        {u"mnuEliminar"_s, u"FrmContAbrir Eliminar Declaraciones"_s},
        {u"mnuImprimir"_s, u"frmImprimir"_s},
        {u"7"_s, u"FrmContAbrirE Registrar número de orden"_s},
        {u"2"_s, u"FrmContAbrir Modificar Declaraciones"_s},
        {u"3"_s, u"FrmContAbrir Eliminar Declaraciones"_s},
        {u"1"_s, u"Frm518"_s},
    };
    for (const auto& [orden, esperada] : casos) {
        QString abierta;
        if (!esperada.isEmpty())
            AlAbrir({}, [&](QWidget& forma) { abierta = (forma.objectName() + u' ' + forma.windowTitle()).trimmed(); });
        if (const int indice = orden.toInt())
            Boton(indice);
        else
            De<QAction>(*ventana, orden).trigger();
        EXPECT_EQ(abierta, esperada) << orden.toStdString();
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
}

TEST_F(MainWindowTest, EveryWayOutClosesTheBase) {
    const QList<std::function<void()>> salidas = {[this] { De<QAction>(*ventana, u"mnuSalir"_s).trigger(); },
                                                  [this] { Boton(5); }, [this] { ventana->close(); }};
    for (const auto& salida : salidas) {
        Carga();
        EXPECT_EQ(proceso.fechaPrimerIgv, Periodo(2099, 12));
        salida();
        EXPECT_FALSE(ventana->isVisible());
        EXPECT_EQ(proceso.baseDatos, nullptr);
    }
}

class HelpTest : public MainWindowTest {
  protected:
    /// The title of the help window that shows, closed afterwards; empty when none does.
    static QString TituloDeAyuda() {
        for (QWidget* ventana : QApplication::topLevelWidgets()) {
            if (ventana->objectName() != u"FrmAyuda" || !ventana->isVisible())
                continue;
            const QString titulo = ventana->windowTitle();
            ventana->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return titulo;
        }
        return {};
    }
    void Copia() const {
        QDir(base.Carpeta()).mkpath(u"0518"_s);
        ASSERT_TRUE(QFile::copy(QStringLiteral(XA518_AYUDA), RutaAyuda(base.Carpeta() + u'/', Formulario0518())));
    }
};

TEST_F(HelpTest, OpensTheTopicOfTheFormInFrontAlsoOverAModalOne) {
    Copia();
    Carga();
    Boton(10);
    EXPECT_EQ(TituloDeAyuda(), u"Ayuda - Contenido"_s);
    QTest::keyClick(ventana.get(), Qt::Key_F1);
    EXPECT_EQ(TituloDeAyuda(), u"Ayuda - Ventana principal"_s);
    AlAbrir({}, [](QWidget& forma) {
        QTest::keyClick(&forma, Qt::Key_F1);
        EXPECT_EQ(TituloDeAyuda(), u"Ayuda - Identificación"_s) << "by its name";
        AlAbrir(u"CajaAviso"_s, [](QWidget& caja) {
            QTest::keyClick(&caja, Qt::Key_F1);
            EXPECT_EQ(TituloDeAyuda(), u"Ayuda - Identificación"_s) << "of the form under the message";
        });
        AvisosEnPantalla().Muestra({Icono::Critico, u"No vale."_s, {}});
        const std::pair<int, QString> temas[] = {{1014, u"Deuda tributaria"_s}, {9999, u"Contenido"_s}};
        for (const auto& [contexto, tema] : temas) {
            forma.setProperty("contextoAyuda", contexto);
            QTest::keyClick(&forma, Qt::Key_F1);
            EXPECT_NE(forma.findChild<QDialog*>(u"FrmAyuda"_s), nullptr) << "the modal form lets only its own work";
            EXPECT_EQ(TituloDeAyuda(), u"Ayuda - "_s + tema);
        }
    });
    De<QAction>(*ventana, u"mnuNueva"_s).trigger();
}

TEST_F(HelpTest, TellsAMissingFileAndOneThatIsNone) {
    Carga();
    const QString ruta = RutaAyuda(base.Carpeta() + u'/', Formulario0518());
    const QString remedio = u" Ejecute consola --instalar para reponerlo."_s;
    avisos.Espera({Icono::Exclamacion, u"No se encuentra el archivo de ayuda '%1'."_s.arg(ruta) + remedio,
                   ventana->windowTitle()});
    De<QAction>(*ventana, u"mnuContenido"_s).trigger();
    QDir(base.Carpeta()).mkpath(u"0518"_s);
    EscribeEn(ruta, "no es una ayuda");
    avisos.Espera(u"El archivo de ayuda '%1' no se puede leer."_s.arg(ruta) + remedio);
    De<QAction>(*ventana, u"mnuContenido"_s).trigger();
    EXPECT_EQ(TituloDeAyuda(), u""_s);
}

/// Contexts and links name pages that are there, and every page but the contents is linked from them.
TEST_F(HelpTest, LinksLeadToEveryPage) {
    const LibroAyuda libro(QStringLiteral(XA518_AYUDA));
    const QDir paginas(u":/xa518/ayuda"_s);
    QString textos;
    for (const QString& nombre : paginas.entryList(QDir::Files))
        textos += QString::fromUtf8(BytesDe(paginas.filePath(nombre)));
    QSet<QString> nombradas;
    // As it is read, not compiled: the compiled search for the start of a line finds none on Windows.
    static const QRegularExpression nombrada(u"(*NO_JIT)(?:href=\"|^\\w+ )([^\"\\s]+\\.html)"_s,
                                             QRegularExpression::MultilineOption);
    for (const auto& hallada : nombrada.globalMatch(textos))
        nombradas.insert(hallada.captured(1));
    QStringList todas = nombradas.values();
    todas.sort();
    EXPECT_EQ(todas, paginas.entryList({u"*.html"_s}, QDir::Files, QDir::Name));
}

} // namespace
