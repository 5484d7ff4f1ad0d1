#include "platform/Application.h"

#include "Printers.h"
#include "platform/HourGlass.h"
#include "support/NoticeScript.h"
#include "values/Error.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <stdexcept>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

void Falla(int vez) {
    const RelojDeArena reloj;
    if (vez == 1)
        throw Error(NumeroError::BaseBloqueada, u"La base está ocupada."_s);
    if (vez == 2)
        throw std::runtime_error("período");
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
        for (const QString& texto : {u"La base está ocupada."_s, u"período"_s, u"Se produjo un error desconocido."_s})
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

} // namespace
} // namespace xa518
