#include "platform/Application.h"

#include "Printers.h"
#include "platform/HourGlass.h"
#include "support/NoticeScript.h"
#include "values/Error.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <stdexcept>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(ApplicationTest, AnErrorInAFormShowsUnderItsCaptionAndTheFormGoesOn) {
    QDialog forma;
    forma.setWindowTitle(u"Información"_s);
    QLineEdit campo(u"escrito"_s, &forma);
    QPushButton boton(&forma);
    int pulsaciones = 0;
    QObject::connect(&boton, &QPushButton::clicked, [&] {
        const RelojDeArena reloj;
        if (++pulsaciones == 1)
            throw Error(NumeroError::BaseBloqueada, u"La base está ocupada."_s);
        if (pulsaciones == 2)
            throw std::runtime_error("período");
        throw 5;
    });
    for (const QString& texto : {u"La base está ocupada."_s, u"período"_s, u"Se produjo un error desconocido."_s})
        AvisosDelPrograma().Espera({Icono::Critico, texto, u"Información"_s});
    QTimer::singleShot(50, &forma, [&] {
        const RelojDeArena ajeno; // of the work around, still alive when the handler brings the pointer back
        for (int i = 0; i < 3; ++i) {
            QTest::mouseClick(&boton, Qt::LeftButton);
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        }
        EXPECT_TRUE(forma.isVisible());
        EXPECT_EQ(campo.text(), u"escrito"_s);
        forma.accept();
    });
    EXPECT_EQ(forma.exec(), QDialog::Accepted);
    EXPECT_EQ(pulsaciones, 3);
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

} // namespace
} // namespace xa518
