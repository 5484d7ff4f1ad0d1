#include "import/ImportLog.h"
#include "import/ErrorTexts.h"
#include "import/ImportFixture.h"

#include "Printers.h"
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace xa518;
using namespace Qt::StringLiterals;
using prueba::Escenario;
using prueba::LeeBytes;
using prueba::LineaDe;

namespace {

TEST(ImportLog, LinesAsTheyStoodAndTheirReasons) {
    Escenario escenario;
    const QByteArray antigua = LineaDe({{Campo::Nombres, u"Peña"_s}, {Campo::NumeroPercepcion, u" 12a "_s}}).toLatin1();
    const QByteArray larga = LineaDe({{Campo::ApellidoPaterno, QString(21, u'a')}}).toLatin1();
    const QByteArray sinTexto = LineaDe({{Campo::TipoDoc, u"7"_s}, {Campo::NumDoc, u"0"_s}}).toLatin1();
    const QByteArray buena = LineaDe().toLatin1();
    const ResultadoImportacion resultado =
        escenario.Importa(antigua + "  \r\n" + buena + "\r\n" + larga + "\r\n" + sinTexto);

    EXPECT_EQ(resultado.rutaLog, escenario.base.Carpeta() + u"/RPT051820990518018202610.Log"_s);
    EXPECT_EQ(resultado.rutaErr, escenario.base.Carpeta() + u"/RPT051820990518018202610.Err"_s);
    EXPECT_EQ(LeeBytes(resultado.rutaLog), antigua + "  \n" + larga + '\n' + sinTexto + '\n');
    EXPECT_EQ(LeeBytes(resultado.rutaErr),
              QByteArray("1 45678901 1 12A             Número de Comprobante no es válido\n"
                         "1 45678901 1 123             Los apellidos deben ser de 20 posiciones\n"
                         "7 0 1 123               Otro Error : Verifique Estructura de Tablas y datos a transferir\n"));
    EXPECT_EQ(resultado.rechazados, 3);
    EXPECT_EQ(resultado.mensaje, (Mensaje{Icono::Pregunta,
                                          u"Algunos registros han sido rechazados!!\nVerifique Archivo Log: "_s +
                                              resultado.rutaLog + u"\n¿Desea Visualizar Reporte de errores?"_s,
                                          u"Confirmar"_s}));
}

TEST(ImportLog, KeysAreCutToTheirColumn) {
    Escenario escenario;
    LogImportacion log(escenario.proceso);
    log.GraboLog("x", u"123456789012345678901234567890"_s, "0009"_L1);
    log.GraboLog("x", u"123456789012345678901234567890"_s, "0010"_L1);
    EXPECT_EQ(LeeBytes(log.RutaErr()),
              QByteArray("1234567890123456789012345678 De la tabla 0009\n"
                         "1234567890              Otro Error : Verifique Estructura de Tablas y datos a transferir\n"));
}

TEST(ImportLog, OnlyTheFirstRefusalOfARunReplacesOldLogs) {
    Escenario escenario;
    const auto mala = [](const QString& tipo) { return LineaDe({{Campo::TipoDoc, tipo}}); };
    const QString rutaLog = escenario.Importa({mala(u"8"_s), mala(u"9"_s)}).rutaLog;
    const QByteArray primero = (mala(u"8"_s) + u'\n' + mala(u"9"_s) + u'\n').toUtf8();
    EXPECT_EQ(LeeBytes(rutaLog), primero);

    const ResultadoImportacion limpia = escenario.Importa({LineaDe()});
    EXPECT_EQ(limpia.rutaLog + limpia.rutaErr, QString());
    EXPECT_EQ(LeeBytes(rutaLog), primero);

    (void)escenario.Importa({mala(u"5"_s)});
    EXPECT_EQ(LeeBytes(rutaLog), (mala(u"5"_s) + u'\n').toUtf8());
}

TEST(ImportLog, AFailureIsToldButDoesNotEndTheRun) {
    Escenario escenario;
    ASSERT_TRUE(QDir().mkdir(escenario.base.Carpeta() + u"/RPT051820990518018202610.Err"_s));
    const ResultadoImportacion sinLista = escenario.Importa({LineaDe({{Campo::TipoDoc, u"9"_s}}), LineaDe()});
    EXPECT_EQ(sinLista.fin, FinImportacion::Completa);
    EXPECT_EQ(sinLista.transferidos, 1);
    EXPECT_TRUE(sinLista.fallaDelLog.contains(u".Err"_s)) << sinLista.fallaDelLog.toStdString();
    EXPECT_EQ(LeeBytes(sinLista.rutaLog).count('\n'), 1);
}

TEST(ImportLog, LogsAreForTheirUserAlone) {
    Escenario escenario;
    const QString rutaLog = escenario.Importa({LineaDe({{Campo::TipoDoc, u"9"_s}})}).rutaLog;
    EXPECT_FALSE(QFile::permissions(rutaLog) & (QFile::ReadGroup | QFile::ReadOther));
}

} // namespace
