#include "data/Transaction.h"
#include "import/ErrorSheet.h"
#include "import/ImportFixture.h"
#include "import/ImportLog.h"

#include <QBuffer>

#ifndef Q_OS_WIN
#include <csignal>
#include <sys/resource.h>
#endif

using testing::ElementsAre;

namespace {

QString Texto(const ResultadoImportacion& resultado) {
    return resultado.mensaje ? resultado.mensaje->texto : u"(no message)"_s;
}

TEST(ImportRun, TheFileIsFoundWhateverTheCaseOfItsName) {
    Escenario escenario;
    ASSERT_TRUE(QDir().mkdir(escenario.RutaArchivo()));
    EXPECT_EQ(escenario.Corre().falla->Numero(), 53); // a folder is no file
    ASSERT_TRUE(QDir().rmdir(escenario.RutaArchivo()));
    escenario.Escribe(LineaDe().toUtf8());
    ASSERT_TRUE(QFile::rename(escenario.RutaArchivo(), escenario.RutaArchivo().replace(u".TXT"_s, u".txt"_s)));
    EXPECT_EQ(escenario.Corre().transferidos, 1);
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

TEST(ImportRun, AFailureOfTheTotalsIsToldBesideTheEnd) {
    Escenario escenario;
    escenario.base->Ejecuta(u"DROP TABLE F518PDET"_s);
    const ResultadoImportacion resultado = escenario.Importa({LineaDe()});
    EXPECT_EQ(resultado.fin, FinImportacion::Completa);
    EXPECT_EQ(Texto(resultado), u"Archivo : 051820990518018202610.TXT transferido"_s);
    ASSERT_TRUE(resultado.sinTotales);
    EXPECT_EQ(resultado.sinTotales->Numero(), 3011);
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

TEST(ImportRun, AFileThatChangesWhileItIsReadIsTold) {
    for (const qint64 tamanio : {qint64(0), qint64(400'000), qint64(900'000)}) {
        Escenario escenario;
        escenario.Escribe(Muchas(6000));
        const ResultadoImportacion resultado = escenario.Corre(
            [&](int hechas) { return hechas != 10 || QFile::resize(escenario.RutaArchivo(), tamanio); });
        EXPECT_EQ(resultado.fin, FinImportacion::Fallida) << tamanio;
        EXPECT_TRUE(Texto(resultado).startsWith(u"El archivo ha cambiado mientras se importaba."_s)) << tamanio;
        EXPECT_GE(escenario.Cuenta().at(1), 10);
        EXPECT_THAT(escenario.base.Filas(u"SELECT count(*) FROM TMPF518PCAB WHERE mto_base_p * 1 > 1000"_s),
                    ElementsAre(u"1"_s));
    }
}

/// The keys are cut to their column, to a shorter one for a code without a text.
TEST(ImportLog, LinesAsTheyStoodAndTheirReasons) {
    Escenario escenario;
    const QByteArray antigua = LineaDe({{Campo::Nombres, u"Peña"_s}, {Campo::NumeroPercepcion, u" 12a "_s}}).toLatin1();
    const QByteArray larga =
        LineaDe({{Campo::ApellidoPaterno, QString(21, u'a')}, {Campo::SeriePercepcion, QString(20, u'1')}}).toLatin1();
    const QByteArray sinTexto = LineaDe({{Campo::TipoDoc, u"7"_s}, {Campo::NumDoc, u"00000000000"_s}}).toLatin1();
    const QByteArray buena = LineaDe({{Campo::Nombres, u"Ángel Peña"_s}}).toLatin1();
    const ResultadoImportacion resultado =
        escenario.Importa(antigua + "  \r\n" + buena + "\r\n" + larga + "\r\n" + sinTexto);

    EXPECT_EQ(resultado.rutaLog, escenario.base.Carpeta() + u"/RPT051820990518018202610.Log"_s);
    EXPECT_EQ(resultado.rutaErr, escenario.base.Carpeta() + u"/RPT051820990518018202610.Err"_s);
    EXPECT_EQ(BytesDeTexto(resultado.rutaLog), antigua + "  \n" + larga + '\n' + sinTexto + '\n');
    EXPECT_EQ(BytesDeTexto(resultado.rutaErr),
              QByteArray("1 45678901 1 12A             Número de Comprobante no es válido\n"
                         "1 45678901 11111111111111111 Los apellidos deben ser de 20 posiciones\n"
                         "7 00000000              Otro Error : Verifique Estructura de Tablas y datos a transferir\n"));
    EXPECT_EQ(escenario.base.Filas(u"SELECT des_nombres FROM TMPF518PCAB"_s), QStringList{u"ÁNGEL PENA"_s});
    EXPECT_FALSE(QFile::permissions(resultado.rutaLog) & kDeOtros);
    EXPECT_EQ(resultado.rechazados, 3);
    EXPECT_EQ(resultado.mensaje, (Mensaje{Icono::Pregunta,
                                          u"Algunos registros han sido rechazados!!\nVerifique Archivo Log: "_s +
                                              resultado.rutaLog + u"\n¿Desea Visualizar Reporte de errores?"_s,
                                          u"Confirmar"_s}));
}

TEST(ImportLog, OnlyTheFirstRefusalOfARunReplacesOldLogs) {
    Escenario escenario;
    const auto mala = [](const QString& tipo) { return LineaDe({{Campo::TipoDoc, tipo}}); };
    const QString rutaLog = escenario.Importa({mala(u"8"_s), mala(u"9"_s)}).rutaLog;
    const QByteArray primero = (mala(u"8"_s) + u'\n' + mala(u"9"_s) + u'\n').toUtf8();
    EXPECT_EQ(BytesDeTexto(rutaLog), primero);

    const ResultadoImportacion limpia = escenario.Importa({LineaDe()});
    EXPECT_EQ(limpia.rutaLog + limpia.rutaErr, QString());
    EXPECT_EQ(BytesDeTexto(rutaLog), primero);

    (void)escenario.Importa({mala(u"5"_s)});
    EXPECT_EQ(BytesDeTexto(rutaLog), (mala(u"5"_s) + u'\n').toUtf8());
}

#ifndef Q_OS_WIN

TEST(ImportLog, AFullDiskForOneLogLeavesTheOtherAndTheRun) {
    Escenario escenario;
    const QString ruta = escenario.base.Carpeta() + u"/RPT051820990518018202610"_s;
    const QByteArray mala = LineaDe({{Campo::TipoDoc, u"9"_s}}).toUtf8() + '\n';
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, ruta + u".Log"_s));
    const ResultadoImportacion llena = escenario.Importa(mala);
    EXPECT_EQ(llena.fin, FinImportacion::Completa);
    EXPECT_TRUE(llena.noConservado.join(u' ').contains(u"el disco está lleno"_s));
    EXPECT_EQ(BytesDe(ruta + u".Err"_s).count('\n'), 1);
}

TEST(ImportLog, AFullDiskLeavesNoHalfLine) {
    const QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"a.Log"_s);
    ArchivoLog log(ruta);
    log.Agrega("0123456789");
    rlimit antes{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &antes), 0);
    const auto senal = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit lleno{15, antes.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &lleno), 0);
    EXPECT_THROW(log.Agrega("abcdefghij"), Error);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &antes), 0);
    (void)std::signal(SIGXFSZ, senal);
    log.Agrega("otra");
    EXPECT_EQ(BytesDe(ruta), "0123456789\notra\n");
}

#endif

TEST(ErrorSheet, LineFieldValueCodeAndReason) {
    Escenario escenario;
    QBuffer hoja;
    ASSERT_TRUE(hoja.open(QIODevice::WriteOnly));
    PlanillaErrores planilla(hoja);
    escenario.opciones.planilla = &planilla;
    (void)escenario.Importa({LineaDe(), LineaDe({{Campo::RazonSocial, u" dos, \"tres\" "_s}}),
                             LineaDe({{Campo::MontoCobrado, u"-5"_s}}), LineaDe({{Campo::NumeroPercepcion, u"=1+1"_s}}),
                             LineaDe()});
    (void)escenario.Importa(LineaDe().toUtf8() + "\n\n1|2|\n");
    (void)escenario.Importa(QByteArray("\xFF\xFE", 2));
    EXPECT_EQ(hoja.data(),
              u"\uFEFFLínea,Campo,Valor,Código,Motivo,Archivo\r\n"
              "2,Razón social,\"dos, \"\"tres\"\"\",0992,"
              "\"El RUC no es de una Empresa, no debe ingresar la razón social\",051820990518018202610.TXT\r\n"
              "3,Monto cobrado,-5,0884,El monto cobrado no es válido,051820990518018202610.TXT\r\n"
              "4,Número del comprobante de percepción,'=1+1,0858,Número de Comprobante no es válido,"
              "051820990518018202610.TXT\r\n"
              "5,,,0228,De la tabla 0228,051820990518018202610.TXT\r\n"
              "2,,,,El archivo de importación no tiene el número de campos correctos. "
              "Línea 2: tiene 0 campos terminados en «|» y deben ser 18. Hay 2 así.,051820990518018202610.TXT\r\n"
              ",,,,El archivo de importación no tiene el número de campos correctos. "
              "El archivo está en UTF-16 («Unicode»). Guárdelo como UTF-8 o como Windows-1252 («ANSI»).,"
              "051820990518018202610.TXT\r\n"_s.toUtf8());
}

} // namespace
