#include "platform/FieldFocus.h"

#include "Printers.h"
#include "support/FormDriver.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QVBoxLayout>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class FieldFocusTest : public testing::Test {
  protected:
    void SetUp() override {
        auto* orden = new QVBoxLayout(&m_ventana);
        orden->addWidget(&m_campo);
        orden->addWidget(&m_otro);
    }

    QWidget m_ventana;
    QLineEdit m_campo;
    QLineEdit m_otro;
};

/// A message shown on leaving takes and returns the window's focus: nothing may run twice, and a field that was never
/// entered isn't left.
TEST_F(FieldFocusTest, AFieldThatRefusesKeepsTheFocusAndIsAskedOnce) {
    QStringList pasos;
    AlEntrar(m_campo, [&] { pasos += u"entra"_s; });
    AlSalir(m_campo, [&] {
        pasos += u"sale"_s;
        QMessageBox caja(QMessageBox::Critical, u"t"_s, u"x"_s, QMessageBox::Ok, &m_ventana);
        QTimer::singleShot(50, &caja, &QMessageBox::accept);
        caja.exec();
        prueba::Muestra(m_ventana); // a window manager gives the window its focus back
        return Salida::Retenida;
    });
    AlSalir(m_campo, [&] {
        pasos += u"sobra"_s;
        return Salida::Libre;
    });
    AlEntrar(m_otro, [&] { pasos += u"entra otro"_s; });
    AlSalir(m_otro, [&] {
        pasos += u"sale otro"_s;
        return Salida::Libre;
    });
    prueba::Muestra(m_ventana);
    QTest::keyClick(&m_campo, Qt::Key_Tab);
    EXPECT_TRUE(m_campo.hasFocus());
    EXPECT_EQ(pasos, (QStringList{u"entra"_s, u"sale"_s, u"entra"_s}));
}

TEST_F(FieldFocusTest, OnlyAnotherFieldTakesTheFocus) {
    int salidas = 0;
    AlSalir(m_campo, [&] {
        ++salidas;
        return Salida::Libre;
    });
    prueba::Muestra(m_ventana);
    QWidget otra;
    prueba::Muestra(otra);
    prueba::Muestra(m_ventana);
    EXPECT_EQ(salidas, 0) << "another window";
    EXPECT_EQ(SueltaFoco(), Salida::Libre);
    EXPECT_EQ(salidas, 1);
    m_campo.setFocus();
    m_ventana.hide();
    EXPECT_EQ(salidas, 1) << "the window closes";
}

} // namespace
} // namespace xa518
