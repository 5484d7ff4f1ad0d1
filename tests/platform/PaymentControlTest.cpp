#include "platform/PaymentControl.h"

#include "Printers.h"
#include "support/FormDriver.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class PaymentControlTest : public testing::Test {
  protected:
    PaymentControlTest() { m_pago.PonBancos({{u"01"_s, u"BANCO UNO   "_s}, {u"02 "_s, u"BANCO DOS"_s}}); }
    FormaDePagoQMD m_pago;
    QSignalSpy m_cambios{&m_pago, &FormaDePagoQMD::Cambiado};
};

TEST_F(PaymentControlTest, HandsBackWhatTheProgramPutsInSilence) {
    m_pago.PonFormaPago(u"C"_s);
    m_pago.PonBanco(u" 02"_s);
    m_pago.PonNumeroCheque(u" 0012 "_s);
    EXPECT_EQ(m_pago.FormaPago() + m_pago.Banco() + m_pago.NumeroCheque(), u"C020012"_s);
    m_pago.PonBancos({{u"01"_s, u"BANCO UNO"_s}});
    EXPECT_EQ(m_pago.Banco(), u"02"_s) << "a bank that the list no longer has";
    for (const QString& ninguno : {u" "_s, u"XX"_s, QString()}) {
        m_pago.PonBanco(ninguno);
        EXPECT_EQ(m_pago.Banco(), u"XX"_s);
    }
    m_pago.PonFormaPago(u"X"_s);
    EXPECT_EQ(m_pago.FormaPago(), u"X"_s);
    EXPECT_EQ(m_cambios.count(), 0);
}

TEST_F(PaymentControlTest, APersonChoosesAChequeAndThenCash) {
    m_pago.show();
    EXPECT_FALSE(prueba::De<QComboBox>(m_pago, u"CmbBanco").isEnabled());
    prueba::Clic(m_pago, u"OptCheque");
    EXPECT_EQ(m_pago.FormaPago(), u"C"_s);
    QTest::keyClick(&prueba::De<QComboBox>(m_pago, u"CmbBanco"), Qt::Key_Down);
    QTest::keyClicks(&prueba::De<QLineEdit>(m_pago, u"TxtNumeroCheque"), u"0-01'2"_s);
    EXPECT_EQ(m_pago.Banco(), u"01"_s);
    EXPECT_EQ(m_pago.NumeroCheque(), u"0012"_s);
    EXPECT_EQ(m_cambios.count(), 6);
    prueba::Clic(m_pago, u"OptEfectivo");
    EXPECT_EQ(m_pago.FormaPago() + m_pago.Banco() + m_pago.NumeroCheque(), u"EXX"_s);
    EXPECT_FALSE(prueba::De<QLineEdit>(m_pago, u"TxtNumeroCheque").isEnabled());
    EXPECT_EQ(m_cambios.count(), 7);
}

} // namespace
} // namespace xa518
