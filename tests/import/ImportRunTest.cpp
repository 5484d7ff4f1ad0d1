#include "import/ImportFixture.h"

#include "data/Transaction.h"

#include <QDir>
#include <QFile>

using namespace xa518;
using namespace Qt::StringLiterals;
using prueba::Escenario;
using prueba::LineaDe;
using prueba::Muchas;
using testing::ElementsAre;

namespace {

QString Texto(const ResultadoImportacion& resultado) {
    return resultado.mensaje ? resultado.mensaje->texto : u"(no message)"_s;
}

TEST(ImportRun, TheFileIsFoundWhateverTheCaseOfItsName) {
    Escenario escenario;
    ASSERT_TRUE(QDir().mkdir(escenario.RutaArchivo()));
    EXPECT_EQ(escenario.Corre().numeroError, 53); // a folder is no file
    ASSERT_TRUE(QDir().rmdir(escenario.RutaArchivo()));
    escenario.Escribe(LineaDe().toUtf8());
    ASSERT_TRUE(QFile::rename(escenario.RutaArchivo(), escenario.RutaArchivo().replace(u".TXT"_s, u".txt"_s)));
    EXPECT_EQ(escenario.Corre().transferidos, 1);
}

TEST(ImportRun, ABaseThatAnotherProgramHoldsStopsTheRun) {
    Escenario escenario;
    escenario.Escribe(LineaDe().toUtf8());
    const Transaccion ajena = escenario.base->Comienza();
    EXPECT_EQ(
        escenario.Corre().mensaje,
        (Mensaje{Icono::Critico, u"El archivo se encuentra abierto!!\nIntente nuevamente por favor."_s, u"Error"_s}));
}

TEST(ImportRun, ACancelAtAnyLineKeepsWhatIsWrittenAndTotalsIt) {
    for (int hasta = 0; hasta < 10; ++hasta) {
        Escenario escenario;
        escenario.Escribe(Muchas(10));
        const ResultadoImportacion resultado = escenario.Corre([&](int hechas) { return hechas < hasta; });
        EXPECT_EQ(resultado.fin, FinImportacion::Cancelada);
        EXPECT_EQ(resultado.mensaje, std::nullopt);
        EXPECT_EQ(resultado.transferidos, hasta);
        EXPECT_THAT(escenario.Cuenta(), ElementsAre(hasta > 0, hasta, hasta));
        EXPECT_EQ(escenario.base.Filas(u"SELECT mto_base_p * 10 FROM TMPF518PCAB"_s).join(QString()),
                  hasta > 0 ? QString::number(1005 * hasta) : QString());
    }
}

TEST(ImportRun, AFailureOfTheTotalsIsTold) {
    Escenario escenario;
    escenario.base->Ejecuta(u"DROP TABLE F518PDET"_s);
    const ResultadoImportacion resultado = escenario.Importa({LineaDe()});
    EXPECT_EQ(resultado.fin, FinImportacion::Fallida);
    EXPECT_EQ(resultado.numeroError, 3011);
    EXPECT_EQ(resultado.transferidos, 1);
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 1, 1));
}

/// The engine undoes the batch in which the disk fills up, and only that one.
TEST(ImportRun, AFullDiskIsToldWithWhatIsKept) {
    Escenario escenario;
    escenario.Escribe(Muchas(10'500));
    const ResultadoImportacion resultado = escenario.Corre([&](int hechas) {
        if (hechas == 10'200)
            (void)escenario.proceso.baseDatos->Lee(u"PRAGMA max_page_count=1"_s).Siguiente();
        return true;
    });
    EXPECT_EQ(resultado.fin, FinImportacion::Fallida);
    EXPECT_TRUE(Texto(resultado).startsWith(u"El disco está lleno."_s)) << Texto(resultado).toStdString();
    EXPECT_EQ(resultado.transferidos, 10'000);
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 10'000, 10'000));
    ASSERT_EQ(resultado.noConservado.size(), 1);
    EXPECT_TRUE(resultado.noConservado.first().endsWith(u"Se conservan: 10000."_s));
}

TEST(ImportRun, ATrialChecksEverythingAndKeepsNothing) {
    using enum Campo;
    Escenario escenario;
    (void)escenario.Importa({LineaDe({{TipoDoc, u"9"_s}}), LineaDe()});
    escenario.opciones.prueba = true;
    const QStringList antes = escenario.base.Filas(u"SELECT * FROM TMPF518PCAB"_s);
    escenario.Escribe((LineaDe({{TipoDoc, u"8"_s}}) + u'\n' + LineaDe() + u'\n' + LineaDe({{NumeroCp, u"9"_s}}) +
                       u'\n' + LineaDe({{NumDoc, u"45678902"_s}, {MontoCobrado, u"7"_s}}))
                          .toUtf8());
    const ResultadoImportacion resultado = escenario.Corre();
    EXPECT_EQ(resultado.transferidos, 2); // a duplicate among what is there already is found as well
    EXPECT_EQ(resultado.rechazados, 2);
    EXPECT_EQ(escenario.base.Filas(u"SELECT * FROM TMPF518PCAB"_s), antes);
    EXPECT_THAT(escenario.Cuenta(), ElementsAre(1, 1, 1));
    EXPECT_TRUE(prueba::BytesDe(escenario.base.Carpeta() + u"/RPT051820990518018202610.Log"_s).startsWith("9|"));
}

TEST(ImportRun, AFileThatChangesWhileItIsReadIsTold) {
    for (const qint64 tamanio : {qint64(0), qint64(400'000), qint64(900'000)}) {
        Escenario escenario;
        escenario.Escribe(Muchas(6000));
        const ResultadoImportacion resultado = escenario.Corre(
            [&](int hechas) { return hechas != 10 || QFile::resize(escenario.RutaArchivo(), tamanio); });
        EXPECT_EQ(resultado.fin, FinImportacion::Fallida) << tamanio;
        EXPECT_TRUE(Texto(resultado).startsWith(u"El archivo ha cambiado mientras se importaba."_s)) << tamanio;
        EXPECT_GE(escenario.Cuenta().at(1), 10);
        EXPECT_THAT(escenario.base.Filas(u"SELECT mto_base_p > 1000 FROM TMPF518PCAB"_s), ElementsAre(u"1"_s));
    }
}

/// The file is open: it goes on being read. Only the logs have no place any more.
TEST(ImportRun, AFolderThatVanishesLeavesTheRunItsFile) {
    Escenario escenario;
    const QString carpeta = escenario.base.Carpeta() + u"/otra"_s;
    ASSERT_TRUE(QDir().mkdir(carpeta));
    escenario.proceso.rutaRPT = carpeta + u"/RPT"_s;
    escenario.Escribe(Muchas(3) + '\n' + LineaDe({{Campo::TipoDoc, u"9"_s}}).toUtf8());
    const ResultadoImportacion resultado = escenario.Corre([&](int) {
        QDir(carpeta).removeRecursively();
        QFile::remove(escenario.RutaArchivo());
        return true;
    });
    EXPECT_EQ(resultado.fin, FinImportacion::Completa);
    EXPECT_EQ(resultado.transferidos, 3);
    EXPECT_EQ(resultado.rechazados, 1);
    EXPECT_TRUE(resultado.noConservado.join(u' ').contains(carpeta));
}

} // namespace
