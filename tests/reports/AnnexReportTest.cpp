#include "reports/AmountText.h"
#include "reports/AnnexLines.h"
#include "reports/ReportFixture.h"
#include "reports/RunReport.h"
#include "values/Format.h"

#include <gmock/gmock.h>

#include "Printers.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QString kRuc = u"20512345671"_s;

class AnnexReport : public testing::Test {
  protected:
    void Imprime() { taller.Imprime(true, libreta); }
    /// The lines of a page under its head.
    QStringList Cuerpo(int pagina = 0) const { return libreta.Textos(pagina).mid(12); }

    Taller taller;
    Libreta libreta;
    const QString raya = u' ' + QString(154, u'_');
};

} // namespace

TEST_F(AnnexReport, GivesEveryVoucherItsLineAndEveryFurtherPaymentVoucherItsOwn) {
    taller.Cabecera({{u"501"_s, u"1"_s}});
    taller.Agrega(Cliente{6, kRuc, u"CORPORACIÓN ÑANDÚ S.A."_s});
    taller.Agrega(Comprobante{kRuc, u"00000002"_s, {}, u"1234.5"_s, QVariant(), QVariant(), u"9"_s, u"0"_s});
    taller.Agrega(Comprobante{kRuc, u"00000001"_s, {}, u"-100"_s, u"2"_s});
    taller.Agrega(Comprobante{kRuc, u"123456789012345"_s, u"12"_s});
    for (const QString& comprobante : {u"00000002"_s, u"00000001"_s}) {
        taller.Agrega(Pago{kRuc, comprobante, u"00004513"_s});
        taller.Agrega(Pago{kRuc, comprobante, u"00004511"_s, u"07"_s, u"-50.25"_s});
        taller.Agrega(Pago{kRuc, comprobante, u"00004512"_s});
    }
    Imprime();
    const QString sangria(91, u' ');
    const QString pagos[] = {u"01  F001  00004513        10/01/2026              100.00"_s,
                             u"07  F001  00004511        10/01/2026             (50.25)"_s,
                             u"01  F001  00004512        10/01/2026              100.00"_s};
    const auto pago = [&](int i) { return pagos[i]; };
    const QStringList cuerpo = Cuerpo();
    ASSERT_EQ(cuerpo.size(), 1 + 6 + 1 + 3 + 3 + 5 + 3) << qPrintable(cuerpo.join(u'\n'));
    EXPECT_EQ(cuerpo[0].simplified(), u"CORPORACIÓN ÑANDÚ S.A. RUC 20512345671"_s);
    EXPECT_EQ(cuerpo[1],
              u"P00100000002    12/01/2026            1,234.50  2.0                               NO      -"_s +
                  pago(0));
    EXPECT_EQ(cuerpo[4],
              u"P00100000001    12/01/2026            (100.00)  2.0               2.00     SI     SI     NO"_s +
                  pago(0));
    for (const int linea : {2, 5}) {
        EXPECT_EQ(cuerpo[linea], sangria + pago(1));
        EXPECT_EQ(cuerpo[linea + 1], sangria + pago(2));
    }
    EXPECT_EQ(cuerpo[7], u"P001123456789012345  12/01/2026         100.00  2.0               2.00     SI     SI     NO"
                         "12  Venta al Contado"_s);
    EXPECT_THAT(cuerpo.mid(8, 3),
                ElementsAre(raya, u"     3 Registros                1,234.50                   4.00"_s, raya));
    EXPECT_THAT(cuerpo.mid(11, 3),
                ElementsAre(raya, u" Sub-Totales:"_s + QString(49, u' ') + u"       1,234.50           4.00"_s, raya));
    EXPECT_THAT(cuerpo.mid(19),
                ElementsAre(u"  01  FACTURA"_s, u"  12  TICKET DE MÁQUINA"_s, u' ' + QString(50, u'_')));
}

/// From period 200803 on the two last flags and their headings stand the other way around.
TEST_F(AnnexReport, ShowsTheFlagsOfItsPeriod) {
    const ComprobanteImpreso comprobante{u"P001", u"1", u"01/02/2008", u"1", u"2", u"1", u"0", u"1", u"9", {}};
    const struct {
        QString periodo, banderas, titulo, segundo;
    } casos[] = {{u"200802"_s, u"     NO     SI      -"_s, u"CRED.  LISTA INSTRU"_s, u"FISCAL ZOLMA  PAGO"_s},
                 {u"200803"_s, u"     NO      -     SI"_s, u"CRED.  ZONA  LISTA "_s, u"FISCAL EMERG ZOLMA"_s}};
    for (const auto& [periodo, banderas, titulo, segundo] : casos) {
        LineasAnexo lineas(periodo);
        EXPECT_EQ(lineas.Comprobante(comprobante).last(21), banderas) << qPrintable(periodo);
        EXPECT_TRUE(lineas.PrimerTitulo().contains(titulo));
        EXPECT_TRUE(lineas.SegundoTitulo().contains(segundo));
        EXPECT_EQ(lineas.PrimerTitulo().indexOf(u"CRED."_s), lineas.SegundoTitulo().indexOf(u"FISCAL"_s));
    }
}

TEST_F(AnnexReport, PassesOverVouchersWithoutClientAndCopiesOfOthers) {
    taller.clave.enviada = true;
    for (const QString& correl : {u"1"_s, u"2"_s}) {
        taller.clave.correl = correl;
        taller.Cabecera({{u"501"_s, u"3"_s}});
        for (const QString& numero : {u"20000000005"_s, u"20000000009"_s, u"40000000"_s})
            taller.Agrega(Cliente{numero.size() == 8 ? 1 : 6, numero, u"COPIA "_s + correl});
        for (const QString& numero :
             {u"20000000001"_s, u"20000000005"_s, u"20000000006"_s, u"20000000009"_s, u"90000000"_s}) {
            taller.Agrega(Comprobante{numero, u"0000000"_s + correl});
            taller.Agrega(Comprobante{numero, u"0000000"_s + correl, u"12"_s});
            taller.Agrega(Pago{numero, u"0000000"_s + correl});
            taller.Agrega(Pago{numero, u"00000077"_s}); // of a voucher that isn't there
        }
    }
    taller.clave.correl = u"2"_s;
    Imprime();
    const QStringList cuerpo = Cuerpo();
    EXPECT_EQ(cuerpo.filter(u"COPIA 2"_s).size(), 3);
    EXPECT_EQ(cuerpo.filter(u"F001"_s).size(), 2);
    EXPECT_EQ(cuerpo.filter(u"Venta al Contado"_s).size(), 2);
    QStringList cuentas;
    for (const QString& linea : cuerpo.filter(u"Registros"_s))
        cuentas.append(linea.trimmed().section(u' ', 0, 0));
    EXPECT_THAT(cuentas, ElementsAre(u"2"_s, u"2"_s, u"0"_s));
}

TEST_F(AnnexReport, TurnsItsPagesAndClosesOnANewOneWhenTheLastIsNearlyFull) {
    const struct { int comprobantes, hojas; } casos[] = {{31, 1}, {32, 2}, {37, 2}, {38, 2}};
    for (const auto& [comprobantes, hojas] : casos) {
        taller.Vacia();
        taller.Cabecera({{u"501"_s, u"1"_s}});
        taller.Agrega(Cliente{6, kRuc, u"UNO"_s});
        for (int i = 0; i < comprobantes; ++i)
            taller.Agrega(Comprobante{kRuc, QString::number(i)});
        Imprime();
        EXPECT_EQ(libreta.Hojas(), hojas) << comprobantes;
        for (int pagina = 0; pagina < hojas; ++pagina)
            EXPECT_TRUE(libreta.Textos(pagina)[0].endsWith(u"Pag:     %1"_s.arg(pagina + 1)));
    }
    EXPECT_EQ(Cuerpo(1).first(), raya) << "a page that goes on begins with a rule";
}

/// Payment vouchers of a client with very many of them are looked up one voucher at a time: the same lines come out.
TEST_F(AnnexReport, OfAGiantClientIsTheSame) {
    constexpr int kPagos = 20'001;
    taller.Cabecera({{u"501"_s, u"1"_s}});
    taller.Agrega(Cliente{6, kRuc, u"GIGANTE"_s});
    for (const QString& numero : {u"00000002"_s, u"00000001"_s}) {
        taller.Agrega(Comprobante{kRuc, numero});
        taller.Agrega(Pago{kRuc, numero, numero == u"00000001" ? u"0"_s : u"1"_s});
    }
    taller.proceso.baseDatos->Ejecuta(
        u"WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < %1) INSERT INTO F518PDETCP SELECT "
        "tip_doc_d, Doc_id_d, periodo, Formulario, tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_doc_detcp, "
        "num_serie_detcp, CAST(i AS TEXT), fec_emis_detcp, mto_detcp, NULL FROM n, F518PDETCP "
        "WHERE num_detcp = CAST(i % 2 AS TEXT)"_s.arg(kPagos - 1));
    Imprime();
    QStringList numeros;
    for (int pagina = 0; pagina < libreta.Hojas(); ++pagina) {
        for (const QString& linea : Cuerpo(pagina).filter(u"F001"_s))
            numeros.append(linea.mid(101, 15).trimmed());
    }
    ASSERT_EQ(numeros.size(), kPagos);
    EXPECT_EQ(numeros[0], u"1"_s);
    EXPECT_EQ(numeros[kPagos / 2 - 1], QString::number(kPagos - 2));
    EXPECT_EQ(numeros[kPagos / 2], u"0"_s);
    EXPECT_EQ(numeros.last(), QString::number(kPagos - 1));
}

TEST(AmountText, SaysWhatTheMaskSays) {
    const QString montos = u"|0|0.00|-0.00|.5|5.|-5|007|999.9|1000.00|-1234567.89|123456789012.34|1234567890123.45|"
                           "0.005|1.005|-0.004|(300)|1,234| 5|abc|-|1-|+5|1.2.3"_s;
    for (const QString& monto : montos.split(u'|')) {
        EXPECT_EQ(MontoConParentesis(monto), Format(monto, u"###,###,###,##0.00;(###,###,###,##0.00)"));
        EXPECT_EQ(MontoConSigno(monto), Format(monto, u"###,###,###,##0.00"));
        EXPECT_EQ(MontoConSigno(Importe::Valor(monto)), Format(Importe::Valor(monto), u"###,###,###,##0.00"));
    }
    EXPECT_EQ(MontoConComas(Importe::Valor(u"999999999.99"), 15), u" 999,999,999.99"_s);
    EXPECT_EQ(MontoConComas(Importe::Valor(u"1234567890.12"), 15), u"  1234567890.12"_s) << "too wide: commas go";
}
