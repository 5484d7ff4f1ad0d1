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

class ApplicationTest : public testing::Test {
  protected:
    ApplicationTest() {
        m_forma.setWindowTitle(u"Información"_s);
        for (const QString& texto : {u"La base está ocupada."_s, u"período"_s, u"Se produjo un error desconocido."_s})
            AvisosDelPrograma().Espera({Icono::Critico, texto, u"Información"_s});
    }
    /// Three times within the form's own event loop.
    void Repite(const std::function<void()>& gesto) {
        QTimer::singleShot(50, &m_forma, [&] {
            const RelojDeArena ajeno; // of the work around, still alive when the handler brings the pointer back
            for (int i = 0; i < 3; ++i) {
                gesto();
                EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
            }
            EXPECT_TRUE(m_forma.isVisible());
            EXPECT_EQ(m_campo.text(), u"escrito"_s);
            m_forma.accept();
        });
        EXPECT_EQ(m_forma.exec(), QDialog::Accepted);
    }

    QDialog m_forma;
    QLineEdit m_campo{u"escrito"_s, &m_forma};
};

TEST_F(ApplicationTest, AFailureInAnEventShowsUnderTheFormsCaptionAndTheFormGoesOn) {
    Averiado objeto;
    Repite([&] {
        QEvent evento(QEvent::User);
        QCoreApplication::sendEvent(&objeto, &evento);
    });
}

TEST_F(ApplicationTest, AFailureInAProtectedHandlerNeverCrossesTheToolkit) {
    QPushButton boton(&m_forma);
    int veces = 0;
    QObject::connect(&boton, &QPushButton::clicked, &m_forma, Protegido([&] { Falla(++veces); }));
    Repite([&] { QTest::mouseClick(&boton, Qt::LeftButton); });
}

/// A window that can't be painted fails again under each box that tells so.
TEST(FailureTest, AFailureUnderItsOwnMessageShowsNoSecondBox) {
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
