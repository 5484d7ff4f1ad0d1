#include "platform/WidgetHelpers.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(WidgetHelpersTest, CentresOnWholePixels) {
    QWidget marco;
    marco.resize(201, 100);
    QWidget control(&marco);
    control.resize(50, 31);
    CentraControl(marco, control);
    EXPECT_EQ(control.pos(), QPoint(75, 34));
}

TEST(WidgetHelpersTest, WidensTheDropDownAndNotTheBox) {
    QWidget ventana;
    QComboBox combo(&ventana);
    combo.addItems({u"corto"_s, QString(40, u'x')});
    const QSize antes = combo.minimumSizeHint();
    AjustaCombo(ventana, combo);
    EXPECT_EQ(combo.view()->minimumWidth(), 38 * AnchoPromedio(ventana));
    FijaAnchoCombo(ventana, combo, 15);
    EXPECT_EQ(combo.view()->minimumWidth(), 13 * AnchoPromedio(ventana));
    EXPECT_EQ(combo.minimumSizeHint(), antes);
    FijaAnchoCombo(ventana, combo, 0);
    EXPECT_EQ(combo.view()->minimumWidth(), 0);
}

TEST(WidgetHelpersTest, SendsATabAndNothingElse) {
    QWidget ventana;
    QLineEdit uno;
    QLineEdit dos;
    auto* orden = new QVBoxLayout(&ventana);
    orden->addWidget(&uno);
    orden->addWidget(&dos);
    EnviaTecla(u"TAB"_s); // with no window there is nobody to get it
    ventana.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ventana));
    EnviaTecla(u"ENTER"_s);
    EXPECT_TRUE(uno.hasFocus());
    EnviaTecla(u"TAB"_s);
    EXPECT_TRUE(dos.hasFocus());
    uno.setEnabled(false);
    Enfoca(uno);
    EXPECT_TRUE(dos.hasFocus());
}

} // namespace
} // namespace xa518
