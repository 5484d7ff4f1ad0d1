#include "widgets/PaymentControl.h"

#include "support/FormDriver.h"

#include <QSignalSpy>

namespace {

TEST(PaymentControlTest, TellsWhatAPersonChangesAndNotWhatTheProgramPuts) {
    FormaDePagoQMD pago;
    const QSignalSpy cambios(&pago, &FormaDePagoQMD::Cambiado);
    pago.PonBancos({{u"01"_s, u"BANCO UNO   "_s}, {u"02 "_s, u"BANCO DOS"_s}});
    pago.PonFormaPago(u"C"_s);
    pago.PonBanco(u" 02"_s);
    pago.PonNumeroCheque(u" 0012 "_s);
    EXPECT_EQ(pago.FormaPago() + pago.Banco() + pago.NumeroCheque(), u"C020012"_s);
    pago.PonBancos({{u"01"_s, u"BANCO UNO"_s}});
    EXPECT_EQ(pago.Banco(), u"02"_s) << "a bank that the list no longer has";
    for (const QString& ninguno : {u" "_s, u"XX"_s, QString()}) {
        pago.PonBanco(ninguno);
        EXPECT_EQ(pago.Banco(), u"XX"_s);
    }
    pago.PonFormaPago(u"X"_s);
    pago.PonNumeroCheque({});
    EXPECT_EQ(pago.FormaPago(), u"X"_s);
    EXPECT_EQ(cambios.count(), 0);

    pago.show();
    EXPECT_FALSE(De<QComboBox>(pago, u"CmbBanco").isEnabled());
    Clic(pago, u"OptCheque");
    EXPECT_EQ(pago.FormaPago(), u"C"_s);
    QTest::keyClick(&De<QComboBox>(pago, u"CmbBanco"), Qt::Key_Down);
    QTest::keyClicks(&De<QLineEdit>(pago, u"TxtNumeroCheque"), u"0-0<1'2"_s);
    EXPECT_EQ(pago.Banco(), u"01"_s);
    EXPECT_EQ(pago.NumeroCheque(), u"0012"_s);
    EXPECT_EQ(cambios.count(), 6);
    Clic(pago, u"OptEfectivo");
    EXPECT_EQ(pago.FormaPago() + pago.Banco() + pago.NumeroCheque(), u"EXX"_s);
    EXPECT_FALSE(De<QLineEdit>(pago, u"TxtNumeroCheque").isEnabled());
    EXPECT_EQ(cambios.count(), 7);
}

} // namespace
