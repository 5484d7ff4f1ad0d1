#include "printouts/AmountText.h"
#include "printouts/AnnexLines.h"
#include "printouts/PrintOutFixture.h"
#include "printouts/RunReport.h"
#include "reports/SpoolReport.h"
#include "support/ProgressScript.h"
#include "values/Format.h"

#include <QDir>

#include <gmock/gmock.h>

#include <utility>

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

const QString kRuc = u"20512345671"_s;

class PrintOut : public testing::Test {
  protected:
    /// The declaration itself.
    void Imprime() { taller.Imprime(false, libreta); }
    void ImprimeAnexo() { taller.Imprime(true, libreta); }
    /// The lines of a page under its head.
    QStringList Cuerpo(int pagina = 0) const { return libreta.Textos(pagina).mid(12); }

    Taller taller;
    Libreta libreta;
    const QString raya = u' ' + QString(154, u'_');
};

} // namespace

TEST_F(PrintOut, TheDeclarationWithoutClientsIsOnePageWithTheDebtAtItsPlace) {
    taller.Cabecera({{u"401"_s, u"1000"_s}, {u"402"_s, u"-300"_s}, {u"800"_s, u"7"_s}});
    Imprime();
    EXPECT_EQ(libreta.Hojas(), 1);
    EXPECT_EQ(libreta.TextoEn(300, 2300 + 570), u"DETERMINACION DE LA DEUDA TRIBUTARIA"_s);
    EXPECT_EQ(libreta.TextoEn(9220, 2300 + 570 + 2 * 270), u"           1,000"_s);
    EXPECT_EQ(libreta.TextoEn(9220, 2300 + 570 + 3 * 270), u"           (300)"_s);
    EXPECT_EQ(libreta.TextoEn(9220, 2300 + 570 + 4 * 270), QString(16, u' ')) << "a missing box is empty, not 0";
    EXPECT_THAT(libreta.Textos(0), Contains(u"Contribuyente (1/1)"_s));
    EXPECT_THAT(libreta.Textos(0), Not(Contains(u"NRO. CONTROL: "_s)));
}

TEST_F(PrintOut, TheDeclarationTurnsThePageAfterTheTwentiethClient) {
    const struct {
        int clientes, paginas, filasEnLaUltima;
        QString montos;
    } casos[] = {{1, 1, 1, u"100"_s}, {20, 2, 0, u"2,000"_s}, {21, 2, 1, u"2,100"_s}, {45, 3, 5, u"4,500"_s}};
    for (const auto& [clientes, paginas, filas, montos] : casos) {
        taller.Vacia();
        taller.Cabecera({{u"501"_s, QString::number(clientes)}});
        taller.Clientes(clientes);
        Imprime();
        EXPECT_EQ(libreta.Hojas(), paginas) << clientes;
        const int ultima = paginas - 1;
        const int total = 1970 + 80 + (2 + filas) * 270;
        EXPECT_EQ(libreta.TextoEn(7000, total, ultima).trimmed(), montos) << clientes;
        EXPECT_EQ(libreta.TextoEn(300, total - 80 + 600 + 570, ultima), u"DETERMINACION DE LA DEUDA TRIBUTARIA"_s);
        EXPECT_THAT(libreta.Textos(ultima), Contains(u"Contribuyente (%1/%1)"_s.arg(paginas)));
    }
}

TEST_F(PrintOut, TheDeclarationListsCompaniesAndPersonsByNumber) {
    taller.Cabecera({{u"501"_s, u"4"_s}});
    const QString razon = u"CORPORACIÓN AGROINDUSTRIAL DE LA SELVA CENTRAL S.A.A."_s;
    taller.Cliente(kRuc, razon, {{u"mto_base_p"_s, u"-1234.49996"_s}, {u"mto_imp_p"_s, u"2469135.79"_s}});
    taller.Cliente(u"40512345"_s, u"  "_s, {{u"des_apellido_p"_s, u"NÚÑEZ"_s}, {u"des_nombres"_s, u"ANA|LUZ"_s}});
    taller.Cliente(u"X40512345678901"_s, u"VIAJERO"_s, {{u"tip_doc_per"_s, 7}}); // a type that reports don't show
    Imprime();
    const int fila = 1970 + 80 + 2 * 270;
    EXPECT_EQ(libreta.TextoEn(300, fila), u"RUC 20512345671"_s);
    EXPECT_EQ(libreta.TextoEn(2900, fila), u"CORPORACIÓN AGROINDUSTRIAL DE LA SELVA C"_s);
    EXPECT_EQ(libreta.TextoEn(7000, fila), u"         -1,234.50"_s);
    EXPECT_EQ(libreta.TextoEn(9070, fila), u"      2,469,135.79"_s);
    EXPECT_EQ(libreta.TextoEn(300, fila + 270), u"DNI 40512345"_s);
    EXPECT_EQ(libreta.TextoEn(2900, fila + 270), u"NÚÑEZ , ANA|LUZ"_s);
    EXPECT_EQ(libreta.TextoEn(300, fila + 540), u"X40512345678901"_s);
    EXPECT_EQ(libreta.TextoEn(7000, fila + 810), u"            -1,034"_s)
        << "totals are exact, and then drop their decimals";
}

/// Of the head's columns by name: at the place of `rectifica` a sent copy keeps another one.
TEST_F(PrintOut, TheDeclarationMarksRectificationAndPayment) {
    const struct {
        bool enviada;
        QString rectifica, cheque;
        int xRectifica, xPago;
    } casos[] = {
        {false, u"1"_s, {}, 6600, 6600}, {false, u"0"_s, u" 00123 "_s, 8825, 8825}, {true, u"0"_s, {}, 8825, 6600}};
    for (const auto& [enviada, rectifica, cheque, xRectifica, xPago] : casos) {
        taller.Vacia();
        taller.clave.enviada = enviada;
        taller.clave.correl = u"1"_s;
        taller.Cabecera({}, cheque, rectifica);
        Imprime();
        const int fila = 2300 + 570 + 8 * 270;
        for (const int x : {6600, 8825}) {
            EXPECT_EQ(libreta.TextoEn(x, fila), x == xRectifica ? u" X "_s : QString());
            EXPECT_EQ(libreta.TextoEn(x, fila + 270), x == xPago ? u" X "_s : QString());
        }
        EXPECT_EQ(libreta.TextoEn(9380, fila + 540), cheque.trimmed());
        EXPECT_EQ(libreta.TextoEn(8825, fila + 810), cheque.isEmpty() ? QString() : u"015"_s);
        EXPECT_EQ(libreta.TextoEn(9200, fila + 810), cheque.isEmpty() ? QString() : u"02"_s);
    }
}

TEST_F(PrintOut, TheAnnexGivesEveryVoucherItsLineAndEveryFurtherPaymentVoucherItsOwn) {
    taller.Cabecera({{u"501"_s, u"1"_s}});
    taller.Cliente(kRuc, u"CORPORACIÓN ÑANDÚ S.A."_s);
    taller.Comprobante(kRuc, u"00000002"_s,
                       {{u"mto_base_p"_s, u"1234.5"_s},
                        {u"mto_imp_p"_s, {}},
                        {u"cp_fact"_s, {}},
                        {u"lista_clie"_s, u"9"_s},
                        {u"med_pago"_s, u"0"_s}});
    taller.Comprobante(kRuc, u"00000001"_s, {{u"mto_base_p"_s, u"-99.99504"_s}});
    taller.Comprobante(kRuc, u"123456789012345"_s, {{u"tip_cp"_s, u"12"_s}});
    for (const QString& comprobante : {u"00000002"_s, u"00000001"_s}) {
        taller.Pago(kRuc, comprobante, u"00004513"_s);
        taller.Pago(kRuc, comprobante, u"00004511"_s, {{u"tip_doc_detcp"_s, u"07"_s}, {u"mto_detcp"_s, u"-50.25"_s}});
        taller.Pago(kRuc, comprobante, u"00004512"_s);
    }
    ImprimeAnexo();
    const QString sangria(91, u' ');
    const QString pagos[] = {u"01  F001  00004513        10/01/2026              100.00"_s,
                             u"07  F001  00004511        10/01/2026             (50.25)"_s,
                             u"01  F001  00004512        10/01/2026              100.00"_s};
    const QStringList cuerpo = Cuerpo();
    ASSERT_EQ(cuerpo.size(), 1 + 6 + 1 + 3 + 3 + 5 + 3) << qPrintable(cuerpo.join(u'\n'));
    EXPECT_EQ(cuerpo[0].simplified(), u"CORPORACIÓN ÑANDÚ S.A. RUC 20512345671"_s);
    EXPECT_EQ(cuerpo[1],
              u"P00100000002    12/01/2026            1,234.50  2.0                               NO      -"_s +
                  pagos[0]);
    EXPECT_EQ(cuerpo[4],
              u"P00100000001    12/01/2026            (100.00)  2.0               2.00     SI     SI     NO"_s +
                  pagos[0]);
    for (const int linea : {2, 5}) {
        EXPECT_EQ(cuerpo[linea], sangria + pagos[1]);
        EXPECT_EQ(cuerpo[linea + 1], sangria + pagos[2]);
    }
    EXPECT_EQ(cuerpo[7], u"P001123456789012345  12/01/2026         100.00  2.0               2.00     SI     SI     NO"
                         "12  Venta al Contado"_s);
    EXPECT_THAT(cuerpo.mid(8, 3),
                ElementsAre(raya, u"     3 Registros                1,234.50                   4.00"_s, raya));
    EXPECT_THAT(cuerpo.mid(11, 3),
                ElementsAre(raya, u" Sub-Totales:"_s + QString(49, u' ') + u"       1,234.50           4.00"_s, raya));
    EXPECT_THAT(cuerpo.mid(19),
                ElementsAre(u"  01  FACTURA"_s, u"  12  TICKET DE MÁQUINA"_s, u' ' + QString(50, u'_')));

    // Behind too many others to keep in memory: looked up one voucher at a time they give the same lines.
    taller.DeUnaVez([this] {
        for (int i = 0; i < 20'000; ++i)
            taller.Pago(kRuc, u"de otro"_s, QString::number(i));
    });
    const QString numero = taller.base->NumeroDeFila(u"F518PDETCP"_s).section(u'.', 1);
    taller.base->Ejecuta(u"UPDATE F518PDETCP SET %1 = %1 + 100000 WHERE num_cp <> 'de otro'"_s.arg(numero));
    ImprimeAnexo();
    EXPECT_EQ(Cuerpo(), cuerpo);
}

TEST_F(PrintOut, TheAnnexGivesNamesOfTheirFullLength) {
    taller.Cabecera({{u"501"_s, u"1"_s}});
    const QString veinte = u"MARÍA DE LOS ÁNGELES"_s;
    taller.Cliente(u"40512345"_s, u" "_s,
                   {{u"des_apellido_p"_s, veinte}, {u"des_apellido_m"_s, veinte}, {u"des_nombres"_s, veinte}});
    ImprimeAnexo();
    EXPECT_EQ(Cuerpo()[0], u"%1 %1, %1 DNI          40512345"_s.arg(veinte));
}

/// Rows leave the base as one text each: what stands in their fields must not take them apart.
TEST_F(PrintOut, TheAnnexGivesTextsAsTheyWereEntered) {
    taller.Cabecera({{u"501"_s, u"2"_s}});
    const QString nombre = u"\"EL BUEN PAN\" \\ CÍA, [SUC. 2] null €"_s;
    taller.Cliente(kRuc, nombre + u"\tX\x01Y\x08\x0c\r\nZ"_s);
    taller.Cliente(u"40512345"_s, u"nadie"_s);
    taller.Comprobante(kRuc, u"\"1\\2\""_s, {{u"mto_base_p"_s, {}}});
    taller.Pago(kRuc, u"\"1\\2\""_s, u"a,\"b\"]"_s, {{u"mto_detcp"_s, {}}});
    ImprimeAnexo();
    const QStringList cuerpo = Cuerpo();
    EXPECT_TRUE(cuerpo[0].startsWith(nombre + u"\tX\x01Y\x08\x0c\r\nZ "_s)) << qPrintable(cuerpo[0]);
    EXPECT_EQ(cuerpo[1].simplified(), u"P001\"1\\2\" 12/01/2026 2.0 2.00 SI SI NO01 F001 a,\"b\"] 10/01/2026"_s);
    EXPECT_TRUE(cuerpo[5].startsWith(u"nadie"_s)) << "by number, whatever the type of document";
}

TEST_F(PrintOut, TheAnnexKeepsTheOrderOfEntryOfAClientWithMoreVouchersThanMemoryShouldHold) {
    constexpr int kMuchos = 20'001;
    taller.Cabecera({{u"501"_s, u"1"_s}});
    taller.Cliente(kRuc, u"UNO"_s);
    taller.DeUnaVez([this] {
        for (int i = kMuchos; i > 0; --i)
            taller.Comprobante(kRuc, QString::number(i).rightJustified(8, u'0'));
    });
    taller.Pago(kRuc, u"00020000"_s, u"00004511"_s);
    ImprimeAnexo();
    const QStringList cuerpo = Cuerpo();
    EXPECT_TRUE(cuerpo[1].startsWith(u"P00100020001"_s)) << qPrintable(cuerpo[1]);
    EXPECT_TRUE(cuerpo[2].startsWith(u"P00100020000"_s));
    EXPECT_TRUE(cuerpo[2].contains(u"00004511"_s));
    EXPECT_TRUE(Cuerpo(static_cast<int>(libreta.Hojas()) - 1).join(u'\n').contains(u" 20001 Registros "_s));
}

/// The registered name stays, as that of any report that wasn't written.
TEST_F(PrintOut, TheAnnexLeavesNoHalfFileWhenItIsStopped) {
    taller.Cabecera({{u"501"_s, u"60"_s}});
    taller.Clientes(60);
    const PedidoDeclaracion anexo{*CargarCasillas(*taller.proceso.baseDatos, taller.clave), true};
    AvanceDePrueba hastaLaSegunda([](qint64 hojas, qint64 /*total*/) {
        if (hojas == 2)
            throw Detenido();
    });
    EXPECT_THROW(static_cast<void>(EscribeInforme(taller.proceso, anexo, hastaLaSegunda)), Detenido);
    EXPECT_TRUE(QDir(taller.proceso.rutaRPT).isEmpty());
    qint64 ultima = 0;
    AvanceDePrueba hastaElFin(
        [&](qint64 hojas, qint64 /*total*/) { EXPECT_EQ(hojas, std::exchange(ultima, hojas) + 1); });
    const QString entero = EscribeInforme(taller.proceso, anexo, hastaElFin);
    EXPECT_EQ(PaginasDe(RutaDeInforme(taller.proceso.rutaRPT, entero)), ultima + 1);
    EXPECT_GT(ultima, 2);
}

/// From period 200803 on the two last flags and their headings stand the other way around.
TEST_F(PrintOut, TheAnnexShowsTheFlagsOfItsPeriod) {
    const ComprobanteImpreso comprobante{u"P001", u"1", u"01/02/2008", u"1", u"2", u"1", u"0", u"1", u"9", {}};
    const struct {
        QString periodo, banderas, titulo, segundo;
    } casos[] = {{u"200802"_s, u"     NO     SI      -"_s, u"CRED.  LISTA INSTRU"_s, u"FISCAL ZOLMA  PAGO"_s},
                 {u"200803"_s, u"     NO      -     SI"_s, u"CRED.  ZONA  LISTA "_s, u"FISCAL EMERG ZOLMA"_s}};
    for (const auto& [periodo, banderas, titulo, segundo] : casos) {
        LineasAnexo lineas(*Periodo::DeTabla(periodo));
        EXPECT_EQ(lineas.Comprobante(comprobante).last(21), banderas) << qPrintable(periodo);
        EXPECT_TRUE(lineas.PrimerTitulo().contains(titulo));
        EXPECT_TRUE(lineas.SegundoTitulo().contains(segundo));
        EXPECT_EQ(lineas.PrimerTitulo().indexOf(u"CRED."_s), lineas.SegundoTitulo().indexOf(u"FISCAL"_s));
    }
}

TEST_F(PrintOut, TheAnnexPassesOverVouchersWithoutClientAndCopiesOfOthers) {
    taller.clave.enviada = true;
    for (const QString& correl : {u"1"_s, u"2"_s}) {
        taller.clave.correl = correl;
        taller.Cabecera({{u"501"_s, u"3"_s}});
        for (const QString& numero : {u"20000000005"_s, u"20000000009"_s, u"40000000"_s})
            taller.Cliente(numero, u"COPIA "_s + correl);
        for (const QString& numero :
             {u"20000000001"_s, u"20000000005"_s, u"20000000006"_s, u"20000000009"_s, u"90000000"_s}) {
            taller.Comprobante(numero, correl);
            taller.Comprobante(numero, correl, {{u"tip_cp"_s, u"12"_s}});
            taller.Pago(numero, correl, u"1"_s);
            taller.Pago(numero, u"77"_s, u"1"_s); // of a voucher that isn't there
        }
    }
    taller.clave.correl = u"2"_s;
    ImprimeAnexo();
    const QStringList cuerpo = Cuerpo();
    EXPECT_EQ(cuerpo.filter(u"COPIA 2"_s).size(), 3);
    EXPECT_EQ(cuerpo.filter(u"F001"_s).size(), 2);
    EXPECT_EQ(cuerpo.filter(u"Venta al Contado"_s).size(), 2);
    QStringList cuentas;
    for (const QString& linea : cuerpo.filter(u"Registros"_s))
        cuentas.append(linea.trimmed().section(u' ', 0, 0));
    EXPECT_THAT(cuentas, ElementsAre(u"2"_s, u"2"_s, u"0"_s));
}

TEST_F(PrintOut, TheAnnexTurnsItsPagesAndClosesOnANewOneWhenTheLastIsNearlyFull) {
    const struct { int comprobantes, hojas; } casos[] = {{31, 1}, {32, 2}, {37, 2}, {38, 2}};
    for (const auto& [comprobantes, hojas] : casos) {
        taller.Vacia();
        taller.Cabecera({{u"501"_s, u"1"_s}});
        taller.Cliente(kRuc, u"UNO"_s);
        for (int i = 0; i < comprobantes; ++i)
            taller.Comprobante(kRuc, QString::number(i));
        ImprimeAnexo();
        EXPECT_EQ(libreta.Hojas(), hojas) << comprobantes;
        for (int pagina = 0; pagina < hojas; ++pagina)
            EXPECT_TRUE(libreta.Textos(pagina)[0].endsWith(u"Pag:     %1"_s.arg(pagina + 1)));
    }
    EXPECT_EQ(Cuerpo(1).first(), raya) << "a page that goes on begins with a rule";
}

TEST(AmountText, SaysWhatTheMaskSays) {
    const QString montos = u"|0|0.00|-0.00|.5|5.|-5|007|999.9|1000.00|-1234567.89|123456789012.34|1234567890123.45|"
                           "0.005|1.005|-0.004|(300)|1,234| 5|abc|-|1-|+5|1.2.3"_s;
    for (const QString& monto : montos.split(u'|')) {
        EXPECT_EQ(MontoConParentesis(monto), Format(monto, u"###,###,###,##0.00;(###,###,###,##0.00)"));
        EXPECT_EQ(MontoConSigno(monto), Format(monto, u"###,###,###,##0.00"));
        EXPECT_EQ(MontoConSigno(Decimal::Valor(monto)), Format(Decimal::Valor(monto), u"###,###,###,##0.00"));
    }
    EXPECT_EQ(MontoConComas(Decimal::Valor(u"999999999.99"), 15), u" 999,999,999.99"_s);
    EXPECT_EQ(MontoConComas(Decimal::Valor(u"1234567890.12"), 15), u"  1234567890.12"_s) << "too wide: commas go";
}
