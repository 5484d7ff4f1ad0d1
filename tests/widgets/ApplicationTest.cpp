#include "widgets/Application.h"

#include "support/NoticeScript.h"
#include "values/Error.h"
#include "widgets/HourGlass.h"
#include "widgets/HouseStyle.h"
#include "widgets/NoticeBoxes.h"
#include "widgets/StatusBar.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPalette>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QTimer>

#include <functional>

namespace {

void Falla(int vez) {
    const RelojDeArena reloj;
    if (vez == 1)
        throw Error(NumeroError::BaseBloqueada, u"La base está ocupada."_s);
    if (vez == 2)
        throw std::runtime_error("unexpected");
    throw vez;
}

/// Fails at each event of its own.
class Averiado final : public QObject {
    bool event(QEvent* /*evento*/) override {
        Falla(++m_veces);
        return true;
    }
    int m_veces = 0;
};

/// A failure in an event of any object, or in a handler that is protected from the toolkit: three times within the
/// form's own event loop.
TEST(ApplicationTest, AFailureShowsUnderTheFormsCaptionAndTheFormGoesOn) {
    Averiado objeto;
    int veces = 0;
    QDialog forma;
    forma.setWindowTitle(u"Información"_s);
    QPushButton boton(&forma);
    QObject::connect(&boton, &QPushButton::clicked, &forma, Protegido([&] { Falla(++veces); }));
    const std::function<void()> gestos[] = {[&] {
                                                QEvent evento(QEvent::User);
                                                QCoreApplication::sendEvent(&objeto, &evento);
                                            },
                                            [&] { QTest::mouseClick(&boton, Qt::LeftButton); }};
    for (const auto& gesto : gestos) {
        for (const QString& texto :
             {u"La base está ocupada."_s, u"Se produjo un error inesperado."_s, u"Se produjo un error desconocido."_s})
            AvisosDelPrograma().Espera({Icono::Critico, texto, u"Información"_s});
        QTimer::singleShot(50, &forma, [&] {
            const RelojDeArena ajeno; // of the work around, still alive when the handler brings the pointer back
            for (int i = 0; i < 3; ++i) {
                gesto();
                EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
            }
            EXPECT_TRUE(forma.isVisible());
            forma.accept();
        });
        EXPECT_EQ(forma.exec(), QDialog::Accepted);
    }
}

/// On Windows they travel in the program.
TEST(ApplicationTest, TheToolkitsOwnTextsAreSpanish) {
    const QDialogButtonBox botones(QDialogButtonBox::Cancel | QDialogButtonBox::Yes);
    EXPECT_EQ(botones.button(QDialogButtonBox::Cancel)->text().remove(u'&'), u"Cancelar"_s);
    EXPECT_EQ(botones.button(QDialogButtonBox::Yes)->text().remove(u'&'), u"Sí"_s);
}

/// A window that can't be painted fails again under each box that tells so.
TEST(ApplicationTest, AFailureUnderItsOwnMessageShowsNoSecondBox) {
    auto& aplicacion = *static_cast<Aplicacion*>(qApp);
    AvisosDelPrograma().Espera(u"primera"_s);
    AvisosDelPrograma().AlMostrar([&] { aplicacion.AtiendeFalla(u"segunda"_s); });
    aplicacion.AtiendeFalla(u"primera"_s);
    AvisosDelPrograma().Espera(u"tercera"_s);
    AvisosDelPrograma().AlMostrar({});
    aplicacion.AtiendeFalla(u"tercera"_s);
}

/// An access key presses its button a moment later: too late when the first press has disabled it, or opened a form.
TEST(ApplicationTest, AButtonPressedByItsAccessKeyIsntClickedOnceItIsOutOfReach) {
    QDialog forma;
    QPushButton boton(u"&Borra"_s, &forma);
    int veces = 0;
    QObject::connect(&boton, &QPushButton::clicked, &forma, [&] { ++veces; });
    forma.show();
    const auto pulsa = [&](const std::function<void()>& despues) {
        forma.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&forma));
        QTest::keyClick(&forma, Qt::Key_B, Qt::AltModifier);
        despues();
        QTest::qWait(200);
        return veces;
    };
    EXPECT_EQ(pulsa([&] { boton.setEnabled(false); }), 0);
    boton.setEnabled(true);
    {
        QDialog otra(&forma);
        EXPECT_EQ(pulsa([&] { otra.open(); }), 0);
    }
    EXPECT_EQ(pulsa([] {}), 1);
}

/// Does something with the box once it shows.
void CuandoSeVea(std::function<void(QMessageBox&)> hace) {
    QTimer::singleShot(50, qApp, [hace = std::move(hace)] {
        auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(caja, nullptr);
        hace(*caja);
    });
}

TEST(NoticeBoxesTest, ShowsTheTextAsItStandsOverTheFormInFront) {
    QWidget forma;
    forma.setWindowTitle(u"0518 - Forma"_s);
    forma.show();
    AvisosEnPantalla avisos;
    const RelojDeArena reloj;
    CuandoSeVea([&](QMessageBox& caja) {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        EXPECT_EQ(caja.parentWidget(), &forma);
        EXPECT_EQ(caja.windowTitle(), u"0518 - Forma"_s);
        EXPECT_EQ(caja.textFormat(), Qt::PlainText);
        QTest::keyClick(&caja, Qt::Key_Return);
    });
    avisos.Muestra({Icono::Critico, u"     El <b>número</b>"_s, {}});
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor) << "again after it";
}

TEST(StatusBarTest, TheTipOfANameIsTheNameAsItStands) {
    const QString nombre = u"<b>ANA</b> & HIJOS"_s;
    BarradeEstadoQMD barra;
    barra.PonNombre(nombre);
    QTextDocument visto;
    visto.setHtml(barra.findChild<QLabel*>(u"PanelNombre"_s)->toolTip());
    EXPECT_EQ(visto.toPlainText(), nombre);
}

TEST(NoticeBoxesTest, AQuestionIsAnsweredByItsButtonsOnly) {
    AvisosEnPantalla avisos;
    for (const Respuesta preseleccionada : {Respuesta::Si, Respuesta::No}) {
        CuandoSeVea([](QMessageBox& caja) {
            QTest::keyClick(&caja, Qt::Key_Escape);
            caja.close();
            for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Escape}) // held down since before it came
                QTest::simulateEvent(caja.focusWidget(), true, tecla, Qt::NoModifier, u"\r"_s, true);
            QTest::simulateEvent(caja.focusWidget(), true, Qt::Key_S, Qt::AltModifier, u"s"_s, true);
            EXPECT_TRUE(caja.isVisible());
            QTest::keyClick(&caja, Qt::Key_Return);
        });
        EXPECT_EQ(avisos.Pregunta({Icono::Pregunta, u"¿?"_s, u"t"_s}, preseleccionada), preseleccionada);
        CuandoSeVea([preseleccionada](QMessageBox& caja) {
            const auto otro = preseleccionada == Respuesta::Si ? u"CmdNo"_s : u"CmdSi"_s;
            QTest::mouseClick(caja.findChild<QPushButton*>(otro), Qt::LeftButton);
        });
        EXPECT_NE(avisos.Pregunta({Icono::Pregunta, u"¿?"_s, u"t"_s}, preseleccionada), preseleccionada);
    }
}

TEST(NoticeBoxesTest, EscGivesTheThirdAnswerWhichChangesNothing) {
    AvisosEnPantalla avisos;
    const std::pair<Qt::Key, Respuesta> casos[] = {
        {Qt::Key_Escape, Respuesta::Otra}, {Qt::Key_N, Respuesta::No}, {Qt::Key_M, Respuesta::Otra}};
    for (const auto& [tecla, respuesta] : casos) {
        CuandoSeVea([tecla = tecla](QMessageBox& caja) {
            QTest::keyClick(&caja, tecla, tecla == Qt::Key_Escape ? Qt::NoModifier : Qt::AltModifier);
        });
        EXPECT_EQ(avisos.PreguntaConOtra({Icono::Pregunta, u"¿?"_s, u"t"_s}, u"&Más tarde"_s), respuesta);
    }
}

/// The sign for what doesn't fit in a bar comes late, and is the desktop's own.
/// Whatever the desktop thinks of it: otherwise Modificar and Eliminar act on a row that can't be told from the others.
TEST(ApplicationTest, AMarkedRowShowsWhereverTheKeyboardIs) {
    QPalette delEscritorio(Qt::lightGray);
    delEscritorio.setColor(QPalette::Active, QPalette::Highlight, Qt::darkBlue);
    delEscritorio.setColor(QPalette::Inactive, QPalette::Highlight, Qt::lightGray);
    QApplication::style()->polish(delEscritorio);
    EXPECT_EQ(delEscritorio.color(QPalette::Inactive, QPalette::Highlight), QColor(Qt::darkBlue));
}

TEST(ApplicationTest, ABarThatIsTooShortSaysSoAsTheDesktopDoes) {
    const QStyle* estilo = QApplication::style();
    const auto* deLaCasa = qobject_cast<const EstiloDeLaCasa*>(estilo);
    ASSERT_TRUE(deLaCasa);
    const auto pinta = [](const QIcon& icono) {
        QImage lienzo(24, 24, QImage::Format_ARGB32);
        lienzo.fill(Qt::white);
        QPainter pintor(&lienzo);
        icono.paint(&pintor, lienzo.rect());
        return lienzo;
    };
    const QIcon propio = deLaCasa->baseStyle()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    const QIcon tardio = estilo->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    ASSERT_NE(pinta(propio), pinta({}));
    EXPECT_EQ(pinta(tardio), pinta(propio));
    EXPECT_EQ(QIcon(tardio).pixmap(16).toImage(), propio.pixmap(16).toImage());
    EXPECT_EQ(tardio.availableSizes(), propio.availableSizes());
}

} // namespace
