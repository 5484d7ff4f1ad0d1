#include "platform/MaskedField.h"

#include "Printers.h"
#include "support/FormDriver.h"

#include <gtest/gtest.h>

#include <QVBoxLayout>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(MaskedFieldTest, IsTypedFromItsBeginningAndTypedOver) {
    QWidget ventana;
    CampoPeriodo periodo;
    CampoFecha fecha;
    auto* orden = new QVBoxLayout(&ventana);
    orden->addWidget(&fecha);
    orden->addWidget(&periodo);
    prueba::Muestra(ventana);

    QTest::mouseClick(&periodo, Qt::LeftButton, {}, periodo.rect().center());
    QTest::keyClicks(&periodo, u"0x3/20"_s);
    EXPECT_EQ(periodo.text(), u"03/20__"_s);
    EXPECT_FALSE(periodo.EstaCompleto());
    QTest::keyClick(&periodo, Qt::Key_Home);
    fecha.setFocus();
    periodo.setFocus(); // back at what is missing
    QTest::keyClicks(&periodo, u"10"_s);
    EXPECT_EQ(periodo.text(), u"03/2010"_s);
    QTest::keyClick(&periodo, Qt::Key_Backspace);
    EXPECT_EQ(periodo.text(), u"03/201_"_s);
    QTest::keyClicks(&periodo, u"15"_s);
    EXPECT_EQ(periodo.text(), u"03/2011"_s);
    fecha.setFocus();
    periodo.setFocus(); // as after a refusal
    QTest::keyClicks(&periodo, u"042012"_s);
    EXPECT_EQ(periodo.text(), u"04/2012"_s);
    for (const QString& texto : {u"__/____"_s, u"1_/2___"_s}) {
        periodo.setText(texto);
        EXPECT_EQ(periodo.text(), texto) << "as it shows, so it is set";
    }
}

} // namespace
} // namespace xa518
