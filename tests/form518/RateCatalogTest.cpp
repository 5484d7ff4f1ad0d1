#include "form518/RateCatalog.h"

#include "support/BaseFixture.h"

namespace {

class RateCatalogTest : public BaseDePrueba {
  protected:
    void Tasa(const QString& clase, const QString& desde, const QString& antes, const QString& despues,
              const QString& tasa) const {
        m_base.Param(u"953"_s, clase + u"010909"_s + desde,
                     Funcion({{2, antes}, {21, despues}, {31, tasa}, {37, u"9"_s}}));
    }
    [[nodiscard]] QString Busca(const QString& periodo, const QString& clase, const QString& mes) const {
        CatalogoTasas tasas(*m_base, Periodo::DeTabla(periodo).value_or(Periodo()));
        const FilaTasa fila = tasas.Busca(clase, Periodo::DeTabla(mes).value_or(Periodo()));
        return fila.factor + u'/' + fila.tasa;
    }
};

TEST_F(RateCatalogTest, RatesAreThoseOfTheRowInForceInTheMonth) {
    Tasa(u"1"_s, u"200501"_s, u" 0.03"_s, u"0.0050"_s, u"0.50"_s);
    Tasa(u"1"_s, u"201103"_s, u"0.04"_s, u"0.00505"_s, u"0.51"_s);
    Tasa(u"2"_s, u"200501"_s, u"0.05"_s, u"0.02"_s, u"2.00"_s);
    // The declared period, not the voucher's month, decides between the two factors.
    for (const QString& caso : u"202405|1|200412|0/0 202405|1|201102|0.0050/0.50 202405|1|201103|0.00505/0.51 "
                               "202405|2|202401|0.02/2.00 202405||202401|0/0 202405|1|____0_|0/0 "
                               "200503|1|200501|0.03/0.50 200504|1|200501|0.0050/0.50"_s.split(u' ')) {
        const QStringList campos = caso.split(u'|');
        EXPECT_EQ(Busca(campos[0], campos[1], campos[2]), campos[3]) << qPrintable(caso);
    }
    CatalogoTasas tasas(*m_base, Periodo(2024, 5));
    (void)tasas.Busca(u"2"_s, Periodo(2024, 5));
    m_base->Ejecuta(u"DELETE * FROM PARAM"_s);
    EXPECT_EQ(tasas.Busca(u"2"_s, Periodo(2024, 5)).factor, u"0.02"_s) << "kept for the run";
}

TEST_F(RateCatalogTest, AClassHoldsNineteenRates) {
    for (int mes = 1; mes <= 19; ++mes)
        Tasa(u"6"_s, QString::number(201000 + mes), u""_s, u"0.01"_s, QString::number(mes));
    EXPECT_EQ(Busca(u"202405"_s, u"6"_s, u"202405"_s), u"0.01/19"_s);
    Tasa(u"6"_s, u"201020"_s, u""_s, u"0.01"_s, u"20"_s);
    EXPECT_THROW((void)Busca(u"202405"_s, u"6"_s, u"202405"_s), Desbordamiento);
}

} // namespace
