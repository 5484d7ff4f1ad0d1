#include "platform/PaymentControl.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class PaymentControlTest : public testing::Test {
  protected:
    PaymentControlTest() { m_pago.PonBancos({{u"01"_s, u"BANCO UNO   "_s}, {u"02 "_s, u"BANCO DOS"_s}}); }
    template <typename T>
    T* Control(const QString& nombre) {
        return m_pago.findChild<T*>(nombre);
    }
    void Elige(const QString& opcion) {
        auto* boton = Control<QRadioButton>(opcion);
        QTest::mouseClick(boton, Qt::LeftButton, {}, {8, boton->height() / 2});
    }

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
    EXPECT_FALSE(Control<QComboBox>(u"CmbBanco"_s)->isEnabled());
    Elige(u"OptCheque"_s);
    EXPECT_EQ(m_pago.FormaPago(), u"C"_s);
    QTest::keyClick(Control<QComboBox>(u"CmbBanco"_s), Qt::Key_Down);
    QTest::keyClicks(Control<QLineEdit>(u"TxtNumeroCheque"_s), u"0-01'2"_s);
    EXPECT_EQ(m_pago.Banco(), u"01"_s);
    EXPECT_EQ(m_pago.NumeroCheque(), u"0012"_s);
    EXPECT_EQ(m_cambios.count(), 6);
    Elige(u"OptEfectivo"_s);
    EXPECT_EQ(m_pago.FormaPago() + m_pago.Banco() + m_pago.NumeroCheque(), u"EXX"_s);
    EXPECT_FALSE(Control<QLineEdit>(u"TxtNumeroCheque"_s)->isEnabled());
    EXPECT_EQ(m_cambios.count(), 7);
}

} // namespace
} // namespace xa518
