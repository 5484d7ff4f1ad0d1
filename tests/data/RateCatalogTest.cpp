#include "DataFixture.h"

#include "data/RateCatalog.h"

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Bands, FollowTheDeclaredPeriod) {
    struct Caso {
        QString periodo;
        QString primerIgv;
        Banda banda;
    };
    const QList<Caso> casos = {
        {u"200412"_s, u"209912"_s, Banda::C}, {u"200501"_s, u"209912"_s, Banda::A},
        {u"200802"_s, u"209912"_s, Banda::A}, {u"200803"_s, u"209912"_s, Banda::B},
        {u"201001"_s, u"201001"_s, Banda::B}, {u"201002"_s, u"201001"_s, Banda::C},
        {u"200803"_s, u""_s, Banda::C},       {u"200802"_s, u""_s, Banda::A},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(BandaDe(caso.periodo, caso.primerIgv), caso.banda) << caso.periodo.toStdString();
}

class RateCatalogTest : public BaseDePrueba {
  protected:
    RateCatalogTest() {
        CreaCatalogo();
        Tasa(u"1"_s, u"200501"_s, u" 0.03"_s, u"0.0050"_s, u"0.50"_s);
        Tasa(u"1"_s, u"201103"_s, u"0.04"_s, u"0.00505"_s, u"0.51"_s);
        Tasa(u"2"_s, u"200501"_s, u"0.05"_s, u"0.02"_s, u"2.00"_s);
    }
    void Tasa(const QString& clase, const QString& desde, const QString& antes, const QString& despues,
              const QString& tasa) {
        Param(u"953"_s, clase + u"010909"_s + desde,
              u'x' + antes.leftJustified(19) + despues.leftJustified(10) + tasa.leftJustified(6) + u"9"_s);
    }
    [[nodiscard]] QString Busca(const QString& periodo, const QString& clase, const QString& mes) {
        CatalogoTasas tasas(*m_base, periodo);
        const FilaTasa& fila = tasas.Busca(clase, mes);
        return fila.factor + u'/' + fila.tasa;
    }
};

TEST_F(RateCatalogTest, TakesTheRowInForceInTheMonth) {
    struct Caso {
        QString periodo;
        QString clase;
        QString mes;
        QString esperado;
    };
    const QList<Caso> casos = {
        {u"202405"_s, u"1"_s, u"200412"_s, u"0/0"_s},
        {u"202405"_s, u"1"_s, u"200501"_s, u"0.0050/0.50"_s},
        {u"202405"_s, u"1"_s, u"201102"_s, u"0.0050/0.50"_s},
        {u"202405"_s, u"1"_s, u"201103"_s, u"0.00505/0.51"_s},
        {u"202405"_s, u"1"_s, u"999911"_s, u"0.00505/0.51"_s},
        {u"202405"_s, u"2"_s, u"202401"_s, u"0.02/2.00"_s},
        {u"202405"_s, u"3"_s, u"202401"_s, u"0/0"_s},
        {u"202405"_s, u""_s, u"202401"_s, u"0/0"_s},
        {u"202405"_s, u"1"_s, u"____0_"_s, u"0/0"_s},
        {u"202405"_s, u"1"_s, u""_s, u"0/0"_s},
        // The declared period, not the voucher's month, decides between the two factors.
        {u"200503"_s, u"1"_s, u"200501"_s, u"0.03/0.50"_s},
        {u"200504"_s, u"1"_s, u"200501"_s, u"0.0050/0.50"_s},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(Busca(caso.periodo, caso.clase, caso.mes), caso.esperado)
            << caso.periodo.toStdString() << ' ' << caso.clase.toStdString() << ' ' << caso.mes.toStdString();
}

TEST_F(RateCatalogTest, HoldsNineteenRowsOfAClass) {
    for (int mes = 1; mes <= 19; ++mes)
        Tasa(u"6"_s, QString::number(201000 + mes), u""_s, u"0.01"_s, QString::number(mes));
    EXPECT_EQ(Busca(u"202405"_s, u"6"_s, u"202405"_s), u"0.01/19"_s);
    Tasa(u"6"_s, u"201020"_s, u""_s, u"0.01"_s, u"20"_s);
    EXPECT_THROW((void)Busca(u"202405"_s, u"6"_s, u"202405"_s), Desbordamiento);
    EXPECT_EQ(Busca(u"202405"_s, u"2"_s, u"202405"_s), u"0.02/2.00"_s);
}

TEST_F(RateCatalogTest, KeepsWhatItReadForTheRun) {
    CatalogoTasas tasas(*m_base, u"202405"_s);
    EXPECT_EQ(tasas.Busca(u"2"_s, u"202405"_s).factor, u"0.02"_s);
    EXPECT_EQ(tasas.Busca(u"1"_s, u"202405"_s).factor, u"0.00505"_s);
    m_base->Ejecuta(u"DELETE * FROM PARAM"_s);
    EXPECT_EQ(tasas.Busca(u"2"_s, u"202405"_s).factor, u"0.02"_s);
    EXPECT_EQ(tasas.Busca(u"2"_s, u"202406"_s).factor, u"0"_s);
}

} // namespace
} // namespace xa518
