#include "import/ImportFixture.h"
#include "import/ImportRate.h"

using testing::ElementsAre;

namespace {

using enum Campo;

TEST(ImportStore, RowsOfAPersonAndACompany) {
    Escenario escenario;
    const QString nota = LineaDe(Empresa({{RazonSocial, u"Compañía "_s + QString(33, u'X')},
                                          {TipoCp, u"7"_s},
                                          {SerieCp, u"7"_s},
                                          {MontoCp, u"100.50"_s}}));
    const ResultadoImportacion resultado =
        escenario.Importa({LineaDe({{Nombres, u"María de los Ángeles del Pilar"_s}}), nota});
    EXPECT_EQ(resultado.transferidos, 2);
    EXPECT_EQ(resultado.mensaje,
              (Mensaje{Icono::Informacion, u"Archivo : 051820990518018202610.TXT transferido"_s, u"Mensaje"_s}));
    EXPECT_THAT(
        escenario.base.Filas(u"SELECT * FROM TMPF518PCAB"_s),
        ElementsAre(
            u"1|45678901|MARÍA DE LOS ÁNGELES ROJAS QUISPE|QUISPE|ROJAS|MARÍA DE LOS ÁNGELES|<null>|100.5|1.01|<null>"_s,
            u"6|20500000008|COMPANÍA "_s + QString(31, u'X') + u"| | | |<null>|100.5|1.01|<null>"_s));
    EXPECT_THAT(escenario.base.Filas(u"SELECT * FROM TMPF518PDET"_s),
                ElementsAre(u"1|45678901|0001|00000123||1|1|0|15/10/2026|100.5|1.01|1.00"_s,
                            u"6|20500000008|0001|00000123||1|1|0|15/10/2026|100.5|1.01|1.00"_s));
    EXPECT_THAT(escenario.base.Filas(u"SELECT * FROM TMPF518PDETCP"_s),
                ElementsAre(u"1|45678901|0001|00000123|01|F001|00000077|10/10/2026|118.59"_s,
                            u"6|20500000008|0001|00000123|07|0007|00000077|10/10/2026|-100.5"_s));
}

TEST(ImportStore, TheDocumentTypeIsStoredByItsValueAndQuotesChangeNoStatement) {
    Escenario escenario;
    (void)escenario.Importa({LineaDe({{TipoDoc, u"07"_s}, {NumDoc, u"O'\""_s}, {ApellidoPaterno, u"D'\"A"_s}}),
                             LineaDe({{TipoDoc, u"1-"_s}}), LineaDe({{TipoDoc, {}}, {NumDoc, {}}})});
    EXPECT_THAT(escenario.base.Filas(u"SELECT tip_doc_per, num_doc_per, des_apellido_p FROM TMPF518PCAB ORDER BY "_s +
                                     escenario.base->NumeroDeFila(u"TMPF518PCAB"_s)),
                ElementsAre(u"7|O'\"|D'\"A"_s, u"1|45678901|QUISPE"_s, u"0||QUISPE"_s));
}

/// It may have been entered by hand, with its amount written in another way.
TEST(ImportStore, LinesOfOneVoucherShareItsRowUnlessTheirDateOrAmountDiffers) {
    Escenario escenario;
    escenario.base->Ejecuta(u"INSERT INTO TMPF518PDET VALUES "
                            "(1,'45678901','0001','00000123','','1','1','0','15/10/2026','100.500','1.01','1.00')"_s);
    const ResultadoImportacion resultado =
        escenario.Importa({LineaDe(), LineaDe({{NumeroCp, u"78"_s}, {MontoCobrado, u"100.50"_s}}),
                           LineaDe({{NumeroCp, u"79"_s}, {MontoCobrado, u"100.51"_s}}),
                           LineaDe({{NumeroCp, u"80"_s}, {FechaEmision, u"16/10/2026"_s}})});
    EXPECT_EQ(resultado.transferidos, 4); // wanted: counted before they are refused
    EXPECT_EQ(resultado.rechazados, 2);
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 1, 2));
    EXPECT_EQ(BytesDe(resultado.rutaErr).count("La fecha y/o el monto del comprobante de percepción no coincide"), 2);
}

/// A trigger stands in for another program that adds the same row between the look-up and the insert.
TEST(ImportStore, AfterADuplicateKeyTheLineGoesOnWithItsNextRow) {
    const QMap<QString, QList<int>> casos = {{u"TMPF518PCAB"_s, {0, 1, 1}}, {u"TMPF518PDET"_s, {1, 0, 1}}};
    for (const auto& [tabla, filas] : casos.asKeyValueRange()) {
        Escenario escenario;
        escenario.base->Ejecuta(u"CREATE TABLE unica (x UNIQUE)"_s);
        escenario.base->Ejecuta(u"INSERT INTO unica VALUES (1)"_s);
        escenario.base->Ejecuta(
            u"CREATE TRIGGER doble BEFORE INSERT ON %1 BEGIN INSERT INTO unica VALUES (1); END"_s.arg(tabla));
        const ResultadoImportacion resultado = escenario.Importa({LineaDe()});
        EXPECT_EQ(resultado.transferidos, 0) << tabla.toStdString();
        EXPECT_EQ(resultado.rechazados, 1);
        EXPECT_EQ(escenario.Cuenta(), filas) << tabla.toStdString();
    }
}

/// Its own line is told, though others have followed.
TEST(ImportStore, ARowThatMeetsAnotherAtTheEndOfItsBatchIsRefusedWithItsLine) {
    Escenario escenario;
    escenario.base->Ejecuta(u"CREATE TABLE unica (x UNIQUE)"_s);
    escenario.base->Ejecuta(u"INSERT INTO unica VALUES (1)"_s);
    escenario.base->Ejecuta(u"CREATE TRIGGER doble BEFORE INSERT ON TMPF518PDETCP WHEN NEW.num_detcp = '00000078' "
                            "BEGIN INSERT INTO unica VALUES (1); END"_s);
    const QString mala = LineaDe({{NumeroCp, u"78"_s}});
    const ResultadoImportacion resultado = escenario.Importa({LineaDe(), mala, LineaDe({{NumeroCp, u"79"_s}})});
    EXPECT_EQ(resultado.transferidos, 2);
    EXPECT_EQ(resultado.rechazados, 1);
    EXPECT_EQ(BytesDeTexto(resultado.rutaLog), mala.toUtf8() + '\n');
    EXPECT_TRUE(BytesDeTexto(resultado.rutaErr).endsWith(" De la tabla 0228\n"));
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 1, 2));
}

/// No line is kept by half.
TEST(ImportStore, ABatchThatTheTablesCantTakeIsLostWholeAndTold) {
    Escenario escenario;
    escenario.base->Ejecuta(u"CREATE TRIGGER no BEFORE INSERT ON TMPF518PDETCP WHEN NEW.num_cp = '00010002' "
                            "BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
    const ResultadoImportacion resultado = escenario.Importa(Muchas(10'005));
    EXPECT_EQ(resultado.fin, FinImportacion::Fallida);
    EXPECT_EQ(resultado.transferidos, 10'000);
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 10'000, 10'000));
    EXPECT_THAT(resultado.noConservado, ElementsAre(testing::Truly([](const QString& t) {
                    return t.endsWith(u": 5. Se conservan: 10000."_s);
                })));
}

/// The fixture's rows bear the number of their class as rate. The answers: credit, sale, list, amount.
TEST(ImportStore, RateOfEachBandAndAnswer) {
    Escenario escenario;
    for (const QString& caso :
         {u"200501 201012 1011 1"_s, u"200802 201012 1000 2"_s, u"200802 201012 0010 2"_s, u"200803 201012 1110 1"_s,
          u"200803 201012 1100 6"_s, u"201012 201012 1010 1"_s, u"201012 201012 1000 2"_s, u"201012 201012 0110 6"_s,
          u"201012 201012 0010 2"_s, u"201101 201012 1011 3"_s, u"201101 201012 1012 4"_s, u"201101 201012 1001 4"_s,
          u"201101 201012 0111 5"_s, u"200803  1100 4"_s, u"200412 201012 1010 0"_s}) {
        const QStringList p = caso.split(u' ');
        TasaImportacion tasa(*escenario.proceso.baseDatos, *Periodo::DeTabla(p[0]),
                             Periodo::DeTabla(p[1]).value_or(Periodo()));
        const auto respuesta = [&](qsizetype cual) { return p[2].mid(cual, 1); };
        EXPECT_EQ(tasa.NuevaTasa(respuesta(0), respuesta(1), respuesta(2), respuesta(3)).tasa.left(1), p[3])
            << caso.toStdString();
    }
}

/// Date, answer of the sale, credit and type, and what is stored of them: cp_fact, lista_clie, med_pago, mto_imp_p,
/// por_tasa_p.
TEST(ImportStore, AnswersThatThePeriodKeeps) {
    for (const QString& caso : {u"15/03/2005  1 01 1|1|9|90.45|1.00"_s, u"15/02/2008  0 03 0|1|9|2.01|2.00"_s,
                                u"15/12/2010 1 0 03 0|1|1|6.03|6.00"_s, u"15/01/2011 1 1 01 1|1|9|4.02|4.00"_s,
                                u"15/01/2011 1 0 03 0|9|9|5.03|5.00"_s}) {
        const QStringList p = caso.split(u' ');
        Escenario escenario(p[0].mid(6) + p[0].mid(3, 2));
        escenario.proceso.fechaPrimerIgv = Periodo(2010, 12);
        (void)escenario.Importa({LineaDe({{FechaEmision, p[0]},
                                          {FechaCp, u"01/01/2005"_s},
                                          {SerieCp, u"1"_s},
                                          {RespuestaVenta, p[1]},
                                          {CreditoFiscal, p[2]},
                                          {TipoCp, p[3]}})});
        EXPECT_THAT(
            escenario.base.Filas(u"SELECT cp_fact, lista_clie, med_pago, mto_imp_p, por_tasa_p FROM TMPF518PDET"_s),
            ElementsAre(p[4]));
    }
}

TEST(ImportStore, ThePerceptionIsRoundedTwice) {
    Escenario escenario;
    escenario.base->Ejecuta(u"DELETE * FROM PARAM"_s);
    escenario.base.Param(u"953"_s, u"1010909200501"_s, Funcion({{21, u"0.00405"_s}, {31, u"0.41"_s}}));
    (void)escenario.Importa({LineaDe({{MontoCobrado, u"1.23"_s}})});
    EXPECT_THAT(escenario.base.Filas(u"SELECT mto_imp_p FROM TMPF518PDET"_s), ElementsAre(u"0.01"_s));
}

/// A cash sale is known by its type too, and what is known isn't looked at again.
TEST(ImportStore, CashSales) {
    Escenario escenario(u"202610"_s, FormatoVentas());
    const ResultadoImportacion resultado = escenario.Importa(
        {VentaDe(), VentaDe({{TipoCp, u"8"_s}}), VentaDe({{MontoCobrado, u"7"_s}, {NumDoc, u"45678902"_s}}),
         VentaDe({{MontoCobrado, u"7"_s}}),
         VentaDe(Empresa({{CreditoFiscal, u"0"_s}, {TipoCp, u"3"_s}, {SeriePercepcion, u"b001"_s}}))});
    EXPECT_EQ(resultado.transferidos, 5);
    EXPECT_TRUE(BytesDeTexto(resultado.rutaErr).endsWith(" Registro Duplicado\n"));
    EXPECT_EQ(resultado.rechazados, 1);
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(3, 4, 0));
    EXPECT_THAT(
        escenario.base.Filas(u"SELECT * FROM TMPF518PDET ORDER BY "_s + escenario.base->NumeroDeFila(u"TMPF518PDET"_s)),
        ElementsAre(u"1|45678901|0001|00000123|01|1|1|0|15/10/2026|100.5|1.01|1.00"_s,
                    u"1|45678901|0001|00000123|08|1|1|0|15/10/2026|100.5|1.01|1.00"_s,
                    u"1|45678902|0001|00000123|01|1|1|0|15/10/2026|7|0.07|1.00"_s,
                    u"6|20500000008|B001|00000123|03|0|1|0|15/10/2026|100.5|2.01|2.00"_s));
    EXPECT_THAT(escenario.base.Filas(u"SELECT mto_base_p, mto_imp_p FROM TMPF518PCAB ORDER BY "_s +
                                     escenario.base->NumeroDeFila(u"TMPF518PCAB"_s)),
                ElementsAre(u"201|2.02"_s, u"7|0.07"_s, u"100.5|2.01"_s));
}

} // namespace
