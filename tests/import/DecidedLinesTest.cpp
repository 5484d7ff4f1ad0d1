#include "import/ImportFixture.h"

using enum Campo;
using testing::ElementsAre;

namespace {

constexpr int kLote = 10'000; // lines of the first batch

/// A file of so many lines, some of them with changes, by their number from 1.
QByteArray Archivo(int lineas, const QMap<int, Cambios>& otras) {
    QStringList todas;
    for (int i = 1; i <= lineas; ++i) {
        Cambios cambios{{NumeroPercepcion, QString::number(i)}};
        cambios.insert(otras.value(i));
        todas.append(LineaDe(cambios));
    }
    return todas.join(u'\n').toUtf8();
}

const Cambios kMala{{NumeroCp, u"x"_s}};

/// The lines of a run's log, each by the number of its voucher; there is none without a refusal.
QStringList Rechazadas(const ResultadoImportacion& resultado) {
    QStringList numeros;
    if (resultado.rutaLog.isEmpty())
        return numeros;
    for (const QByteArray& linea : BytesDeTexto(resultado.rutaLog).split('\n'))
        numeros.append(QString::fromUtf8(linea).section(u'|', 7, 7));
    numeros.removeAll(QString());
    return numeros;
}

/// Lines behind a full batch: one refused, one that needs a rate not read yet, a duplicate of the batch in front.
TEST(DecidedLines, ThoseBehindABatchAreAsIfDecidedAfterIt) {
    Escenario escenario;
    const ResultadoImportacion resultado =
        escenario.Importa(Archivo(2 * kLote + 5, {{kLote + 2, kMala},
                                                  {kLote + 3, {{ListaClientes, u"0"_s}}},
                                                  {kLote + 4, {{NumeroPercepcion, u"7"_s}}},
                                                  {2 * kLote + 1, kMala}}));
    EXPECT_EQ(resultado.fin, FinImportacion::Completa);
    EXPECT_EQ(resultado.transferidos, 2 * kLote + 2);
    EXPECT_EQ(resultado.rechazados, 3);
    EXPECT_EQ(Rechazadas(resultado), (QStringList{u"10002"_s, u"7"_s, u"20001"_s}));
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 2 * kLote + 2, 2 * kLote + 2));
    EXPECT_THAT(escenario.base.Filas(u"SELECT num_cp, por_tasa_p FROM TMPF518PDET WHERE por_tasa_p <> '1.00'"_s),
                ElementsAre(u"00010003|2.00"_s));
}

TEST(DecidedLines, ACancelAmongThemLeavesNothingOfThoseBehind) {
    for (const int hasta : {kLote, kLote + 1, kLote + 3, kLote + 6}) {
        Escenario escenario;
        escenario.Escribe(Archivo(kLote + 500, {{kLote + 2, kMala}, {kLote + 5, kMala}}));
        const ResultadoImportacion resultado = escenario.Corre([&](int hechas) { return hechas < hasta; });
        const int malas = (hasta >= kLote + 2) + (hasta >= kLote + 5);
        EXPECT_EQ(resultado.fin, FinImportacion::Cancelada);
        EXPECT_EQ(resultado.transferidos, hasta - malas);
        EXPECT_EQ(Rechazadas(resultado).size(), malas) << hasta;
        EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, hasta - malas, hasta - malas));
    }
}

TEST(DecidedLines, WhatTheBatchInFrontFailsOfIsTheEndOfThem) {
    Escenario escenario;
    escenario.base->Ejecuta(u"CREATE TRIGGER no BEFORE INSERT ON TMPF518PDETCP WHEN NEW.num_cp = '00000002' "
                            "BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
    const ResultadoImportacion resultado = escenario.Importa(Archivo(kLote + 500, {{kLote + 1, kMala}}));
    EXPECT_EQ(resultado.fin, FinImportacion::Fallida);
    EXPECT_EQ(resultado.transferidos, 0);
    EXPECT_EQ(resultado.rechazados, 0);
    EXPECT_EQ(resultado.rutaLog, QString());
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(0, 0, 0));
}

/// Line 5 isn't in the tables after all, so that the same one behind the batch is no duplicate.
TEST(DecidedLines, TheyAreDecidedAgainWhenTheTablesAreOthers) {
    Escenario escenario;
    escenario.base->Ejecuta(u"CREATE TABLE unica (x UNIQUE)"_s);
    escenario.base->Ejecuta(u"INSERT INTO unica VALUES (1)"_s);
    escenario.base->Ejecuta(u"CREATE TRIGGER doble BEFORE INSERT ON TMPF518PDETCP WHEN NEW.num_cp = '00000005' AND "
                            "(SELECT count(*) FROM TMPF518PDETCP) < 100 BEGIN INSERT INTO unica VALUES (1); END"_s);
    const ResultadoImportacion resultado =
        escenario.Importa(Archivo(kLote + 20, {{kLote + 1, {{NumeroPercepcion, u"5"_s}}}, {kLote + 2, kMala}}));
    EXPECT_EQ(resultado.fin, FinImportacion::Completa);
    EXPECT_EQ(resultado.transferidos, kLote + 18);
    EXPECT_EQ(Rechazadas(resultado), (QStringList{u"5"_s, u"10002"_s}));
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, kLote + 18, kLote + 18));
}

} // namespace
