#include "platform/NoticeBoxes.h"

#include "Printers.h"
#include "platform/HourGlass.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

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

TEST(NoticeBoxesTest, AQuestionIsAnsweredByItsButtonsOnly) {
    AvisosEnPantalla avisos;
    for (const Respuesta preseleccionada : {Respuesta::Si, Respuesta::No}) {
        CuandoSeVea([](QMessageBox& caja) {
            QTest::keyClick(&caja, Qt::Key_Escape);
            caja.close();
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

} // namespace
} // namespace xa518
