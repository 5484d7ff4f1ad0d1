#include "platform/FieldFocus.h"

#include "Printers.h"
#include "platform/FieldKeys.h"
#include "support/FormDriver.h"
#include "values/Format.h"

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
    /// What the field shows after the focus came and went.
    QString Pasa(const QString& texto) {
        m_campo.setText(texto);
        m_campo.setFocus();
        m_otro.setFocus();
        return m_campo.text();
    }

    QWidget m_ventana;
    QLineEdit m_campo;
    QLineEdit m_otro;
};

TEST_F(FieldFocusTest, ShowsPlainWhileEditedAndGroupedElsewhere) {
    m_campo.setMaxLength(12);
    FormatosDeFoco(
        m_campo, [](const QString& texto) { return Format(texto, u"###########0.#0"); },
        [](const QString& texto) { return Format(texto, u"###,###,###,##0.#0"); });
    m_campo.setText(u"999,999,999,999.00"_s);
    prueba::Muestra(m_ventana); // the first field of a window has the focus from the start
    EXPECT_EQ(m_campo.text(), u"999999999999.00"_s);
    QTest::keyClick(&m_campo, Qt::Key_Tab);
    EXPECT_EQ(m_campo.text(), u"999,999,999,999.00"_s);
    EXPECT_EQ(Pasa({}), QString());
    EXPECT_EQ(Pasa(u"  "_s), u"  "_s);
}

TEST_F(FieldFocusTest, PadsWhatIsNotEmptyAndASeriesWithoutLetters) {
    CompletaConCeros(m_otro, [] { return 5; });
    LimitaTecleo(m_campo, 10);
    CompletaSerie(m_campo);
    prueba::Muestra(m_ventana);
    for (const auto& [antes, despues] : {std::pair{u"123"_s, u"00123"_s}, {u"123456"_s, u"123456"_s}, {u""_s, u""_s}}) {
        m_otro.setText(antes);
        m_otro.setFocus();
        m_campo.setFocus();
        EXPECT_EQ(m_otro.text(), despues);
    }
    EXPECT_EQ(Pasa({}), QString());
    EXPECT_EQ(LimiteDeTecleo(m_campo), 10);
    for (const auto& [antes, despues] : {std::pair{u"12"_s, u"0012"_s}, {u"A1"_s, u"A1"_s}, {u"  "_s, u"  "_s}})
        EXPECT_EQ(Pasa(antes), despues);
    EXPECT_EQ(LimiteDeTecleo(m_campo), 4);
}

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
