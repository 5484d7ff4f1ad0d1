#include "import/ImportLog.h"
#include "import/ErrorSheet.h"
#include "import/ImportFixture.h"

#include <csignal>
#include <sys/resource.h>

#include <QBuffer>
#include <QDir>
#include <QFile>

using namespace xa518;
using namespace Qt::StringLiterals;
using prueba::BytesDe;
using prueba::Cambios;
using prueba::Empresa;
using prueba::Escenario;
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
    EXPECT_EQ(BytesDe(resultado.rutaLog), antigua + "  \n" + larga + '\n' + sinTexto + '\n');
    EXPECT_EQ(BytesDe(resultado.rutaErr),
              QByteArray("1 45678901 1 12A             Número de Comprobante no es válido\n"
                         "1 45678901 1 123             Los apellidos deben ser de 20 posiciones\n"
                         "7 0 1 123               Otro Error : Verifique Estructura de Tablas y datos a transferir\n"));
    EXPECT_FALSE(QFile::permissions(resultado.rutaLog) & prueba::kDeOtros);
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
    EXPECT_EQ(BytesDe(log.RutaErr()),
              QByteArray("1234567890123456789012345678 De la tabla 0009\n"
                         "1234567890              Otro Error : Verifique Estructura de Tablas y datos a transferir\n"));
}

TEST(ImportLog, OnlyTheFirstRefusalOfARunReplacesOldLogs) {
    Escenario escenario;
    const auto mala = [](const QString& tipo) { return LineaDe({{Campo::TipoDoc, tipo}}); };
    const QString rutaLog = escenario.Importa({mala(u"8"_s), mala(u"9"_s)}).rutaLog;
    const QByteArray primero = (mala(u"8"_s) + u'\n' + mala(u"9"_s) + u'\n').toUtf8();
    EXPECT_EQ(BytesDe(rutaLog), primero);

    const ResultadoImportacion limpia = escenario.Importa({LineaDe()});
    EXPECT_EQ(limpia.rutaLog + limpia.rutaErr, QString());
    EXPECT_EQ(BytesDe(rutaLog), primero);

    (void)escenario.Importa({mala(u"5"_s)});
    EXPECT_EQ(BytesDe(rutaLog), (mala(u"5"_s) + u'\n').toUtf8());
}

/// A folder in the place of one file, or a disk without room for the other.
TEST(ImportLog, AFailureIsToldButDoesNotEndTheRun) {
    Escenario escenario;
    const QString ruta = escenario.base.Carpeta() + u"/RPT051820990518018202610"_s;
    const QByteArray mala = LineaDe({{Campo::TipoDoc, u"9"_s}}).toUtf8() + '\n';
    ASSERT_TRUE(QDir().mkdir(ruta + u".Err"_s));
    const ResultadoImportacion sinLista = escenario.Importa(mala + LineaDe().toUtf8());
    EXPECT_EQ(sinLista.fin, FinImportacion::Completa);
    EXPECT_EQ(sinLista.transferidos, 1);
    EXPECT_TRUE(sinLista.noConservado.join(u' ').contains(u".Err"_s));
    EXPECT_EQ(BytesDe(ruta + u".Log"_s), mala);

    ASSERT_TRUE(QDir().rmdir(ruta + u".Err"_s) && QFile::remove(ruta + u".Log"_s));
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, ruta + u".Log"_s));
    const ResultadoImportacion llena = escenario.Importa(mala);
    EXPECT_EQ(llena.fin, FinImportacion::Completa);
    EXPECT_TRUE(llena.noConservado.join(u' ').contains(u"No space left"_s));
    EXPECT_EQ(BytesDe(ruta + u".Err"_s).count('\n'), 1);
}

/// Table `ERROR` has a text for each code, but of most the import fixes the wording itself.
TEST(ImportLog, TheWordingOfEveryCode) {
    using enum Campo;
    struct Caso {
        Cambios cambios;
        QString texto;
    };
    const auto deTabla = [](const char* codigo) { return u"De la tabla "_s + QLatin1StringView(codigo); };
    const QString nombreLargo(30, u'A');
    const QList<Caso> casos = {
        {{{TipoDoc, u"001"_s}}, u"El tipo de documento debe ser de 1 ó 2 posiciones"_s},
        {{{TipoDoc, u"05"_s}}, deTabla("0009")},
        {Empresa({{NumDoc, u"20990518018"_s}}), deTabla("0221")},
        {Empresa({{NumDoc, u"20500000007"_s}}), deTabla("0001")},
        {{{NumDoc, u"1"_s}}, u"Otro Error : Verifique Estructura de Tablas y datos a transferir"_s},
        {{{RazonSocial, u"Acme"_s}}, u"El RUC no es de una Empresa, no debe ingresar la razón social"_s},
        {Empresa({{RazonSocial, {}}}), deTabla("0003")},
        {Empresa({{Nombres, u"Eva"_s}}), u"El RUC es de una Empresa, no debe ingresar apellidos y nombres"_s},
        {{{ApellidoPaterno, {}}}, deTabla("0853")},
        {{{ApellidoPaterno, u"A?"_s}}, deTabla("0239")},
        {{{ApellidoMaterno, nombreLargo}}, u"Los apellidos deben ser de 20 posiciones"_s},
        {{{Nombres, {}}}, deTabla("0855")},
        {{{SeriePercepcion, {}}}, deTabla("0857")},
        {{{NumeroPercepcion, {}}}, u"Número de Comprobante no es válido"_s},
        {{{FechaEmision, {}}}, deTabla("0859")},
        {{{FechaEmision, u"22/11/2026"_s}},
         u"La fecha de emisión del comprobante emitido es mayor a la fecha del sistema"_s},
        {{{FechaEmision, u"30/09/2026"_s}},
         u"La fecha de emisión del comprobante emitido no corresponde al período declarado"_s},
        {{{CreditoFiscal, {}}}, u"Indique si los cp involucrados generan derecho a crédito fiscal  0=No  1=Si"_s},
        {{{RespuestaVenta, {}}},
         u"¿Venta comprende Materiales destinados a zonas afectadas - Terremoto del 15/08/2007?  0=No  1=Si"_s},
        {{{ListaClientes, {}}}, u"Su cliente pertenece al listado publicado por ZOLMA?  0=No  1=Si"_s},
        {{{MontoCobrado, {}}}, u"Ingrese el monto cobrado(S/.)"_s},
        {{{MontoCobrado, u"0"_s}}, u"El monto cobrado no es válido"_s},
        {{{MontoCobrado, u"1E3"_s}}, u"El monto cobrado no es numérico"_s},
        {{{MontoCobrado, u"1.2.3"_s}}, u"El monto cobrado debe tener un solo punto decimal"_s},
        {{{MontoCobrado, u"1234567890123"_s}}, u"El monto cobrado debe tener doce(12) números enteros"_s},
        {{{MontoCobrado, u"123456789012.345"_s}}, u"El monto cobrado es muy grande"_s},
        {{{TipoCp, u"02"_s}}, u"El tipo de comprobante no es válido"_s},
        {{{TipoCp, u"99"_s}}, u"El comprobante no genera derecho a crédito fiscal"_s},
        {{{SerieCp, {}}}, u"El número de serie del comprobante de pago no es válido"_s},
        {{{FechaCp, u"22/11/2026"_s}}, u"La fecha de emisión del comprobante origen es mayor a la fecha del sistema"_s},
        {{{FechaCp, u"01/11/2026"_s}}, deTabla("0868")},
        {{{MontoCp, {}}}, u"Ingrese el Importe del comprobante de pago"_s},
        {{{MontoCp, u"0"_s}}, u"El importe del comprobante de pago no es válido"_s},
        {{{MontoCp, u"5 KG"_s}}, u"El importe del comprobante de pago no es numérico"_s},
        {{{MontoCp, u"1..2"_s}}, u"El importe del comprobante de pago debe tener un solo punto decimal"_s},
        {{{MontoCp, u"1234567890123"_s}}, u"El importe del comprobante de pago debe tener doce(12) números enteros"_s},
        {{{MontoCp, u"123456789012.345"_s}}, u"El monto del comprobante de pago es muy grande"_s},
        {{{TipoCp, u"07"_s}, {MontoCp, u"123456789012"_s}},
         u"El importe de la nota de credito debe tener once(11) números enteros"_s},
        {{{NumeroCp, u"78"_s}, {MontoCobrado, u"7"_s}},
         u"La fecha y/o el monto del comprobante de percepción no coincide"_s},
        {{}, deTabla("0228")},
    };
    Escenario escenario;
    QStringList lineas{LineaDe()};
    for (const Caso& caso : casos)
        lineas.append(LineaDe(caso.cambios));
    const QString err = QString::fromUtf8(BytesDe(escenario.Importa(lineas).rutaErr));
    const QStringList lista = err.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lista.size(), casos.size());
    for (qsizetype i = 0; i < lista.size(); ++i)
        EXPECT_TRUE(lista[i].endsWith(u' ' + casos[i].texto)) << lista[i].toStdString();

    Escenario antiguo(u"200802"_s);
    const QString respondida = LineaDe({{FechaEmision, u"15/02/2008"_s}});
    EXPECT_TRUE(BytesDe(antiguo.Importa({respondida}).rutaErr)
                    .contains("La pregunta ¿Venta Materiales destinados a zonas afectadas - Terremoto del 15/08/2007? "
                              "debe quedar en blanco\n"));
    Escenario ventas(u"202610"_s, FormatoVentas());
    const QByteArray doble = BytesDe(ventas.Importa({prueba::VentaDe(), prueba::VentaDe()}).rutaErr);
    EXPECT_TRUE(doble.endsWith(" Registro Duplicado\n")) << doble.toStdString();
}

/// What was refused can be corrected and imported again: the log is a file of the same kind.
TEST(ImportLog, TheCorrectedLogIsAFileToImport) {
    Escenario escenario(u"202610"_s, FormatoVentas());
    const QByteArray mala = prueba::VentaDe({{Campo::Nombres, u"Peña"_s}, {Campo::TipoDoc, u"9"_s}}).toLatin1();
    const ResultadoImportacion resultado = escenario.Importa(mala + "\r\n" + prueba::VentaDe().toLatin1() + "\r\n");
    EXPECT_EQ(resultado.rutaLog, escenario.base.Carpeta() + u"/RPT051820990518018202610.Log"_s);
    QByteArray log = BytesDe(resultado.rutaLog);
    EXPECT_EQ(log, mala + '\n');
    EXPECT_EQ(escenario.Importa(log.replace("9|45678901|", "1|45678902|")).rechazados, 0);
    EXPECT_EQ(escenario.Filas(u"SELECT des_nombres FROM TMPF518PCAB WHERE num_doc_per='45678902'"_s),
              QStringList{u"PENA"_s});
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

TEST(ErrorSheet, LineFieldValueCodeAndReason) {
    Escenario escenario;
    QBuffer hoja;
    ASSERT_TRUE(hoja.open(QIODevice::WriteOnly));
    PlanillaErrores planilla(hoja);
    escenario.opciones.planilla = &planilla;
    (void)escenario.Importa({LineaDe(), LineaDe({{Campo::RazonSocial, u" dos, \"tres\" "_s}}),
                             LineaDe({{Campo::MontoCobrado, u"-5"_s}}), LineaDe({{Campo::NumeroPercepcion, u"=1+1"_s}}),
                             LineaDe()});
    EXPECT_EQ(hoja.data(),
              u"\uFEFFLínea,Campo,Valor,Código,Motivo,Archivo\r\n"
              "2,Razón social,\"dos, \"\"tres\"\"\",0992,"
              "\"El RUC no es de una Empresa, no debe ingresar la razón social\",051820990518018202610.TXT\r\n"
              "3,Monto cobrado,-5,0884,El monto cobrado no es válido,051820990518018202610.TXT\r\n"
              "4,Número del comprobante de percepción,'=1+1,0858,Número de Comprobante no es válido,"
              "051820990518018202610.TXT\r\n"
              "5,,,0228,De la tabla 0228,051820990518018202610.TXT\r\n"_s.toUtf8());
}

} // namespace
