#include "support/Test.h"
#include "values/Dates.h"
#include "values/Decimal.h"
#include "values/FileFailure.h"
#include "values/Format.h"
#include "values/Text.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <unistd.h>
#endif

namespace {

TEST(Numeric, IsDecidedByTheWholeText) {
    for (const QString& texto : u"000|-5|+5| 5 |1,234,567.8|(1,234)|.5|5."_s.split(u'|'))
        EXPECT_TRUE(EsNumerico(texto)) << qPrintable(texto);
    for (const QString& texto :
         u"| |.|-|()|1-|abc|1E3|12A|1.2.3|1,23|1234,567|--1|(-1)|1 2|5\t|1.2,345|(1|٣"_s.split(u'|'))
        EXPECT_FALSE(EsNumerico(texto)) << qPrintable(texto);
}

TEST(Value, IsTheLeadingNumericPart) {
    for (const QString& caso : u"=0|abc=0|1,234=1|(300)=0|5 kg=5|1-=1|.=0|.5=0.5|1.2.3=1.2|  -7x=-7|1E3=1|"
                               "0.02000=0.02|-0=0|1000=1000"_s.split(u'|'))
        EXPECT_EQ(Decimal::Valor(caso.section(u'=', 0, 0)).Texto(), caso.section(u'=', 1)) << qPrintable(caso);
}

TEST(Currency, HasFourDecimalsTiesToEven) {
    for (const QString& caso : u"0.12345=0.1234|0.12355=0.1236|0.123451=0.1235|-0.12345=-0.1234|-0.12355=-0.1236|"
                               "7=7"_s.split(u'|'))
        EXPECT_EQ(Importe::Valor(caso.section(u'=', 0, 0)).Texto(), caso.section(u'=', 1)) << qPrintable(caso);
}

TEST(Currency, RaisesPastItsWidthInsteadOfWrapping) {
    const Importe mayor = Importe::Valor(u"922337203685477.5807");
    const Importe minimo = Importe::Valor(u"0.0001");
    EXPECT_THROW((void)Importe::Valor(u"922337203685477.5808"), Desbordamiento);
    EXPECT_THROW((void)Importe::Valor(u"-922337203685477.5808"), Desbordamiento);
    EXPECT_THROW((void)(mayor + minimo), Desbordamiento);
    EXPECT_THROW((void)(Importe::Valor(u"-922337203685477.5807") + Importe::Valor(u"-0.0001")), Desbordamiento);
}

TEST(Decimal, RaisesPastThirtySixDigits) {
    const Decimal grande = *Decimal::Lee(QString(36, u'9'));
    EXPECT_EQ(grande.Texto(), QString(36, u'9'));
    EXPECT_THROW((void)Decimal::Lee(QString(37, u'9')), Desbordamiento);
    EXPECT_THROW((void)(grande * grande), Desbordamiento);
    EXPECT_THROW((void)(grande * Decimal::DeEntero(10)), Desbordamiento); // fits 128 bits, but no longer 36 digits
    EXPECT_EQ(Decimal::Lee(QString(200, u'0') + u'7')->Texto(), u"7"_s);
}

TEST(Decimal, ComparesAndRoundsAcrossScales) {
    const auto numero = [](QStringView texto) { return *Decimal::Lee(texto); };
    EXPECT_LT(numero(u"-2"), numero(u"-1.9999"));
    EXPECT_GT(numero(u"10"), numero(u"9.99"));
    EXPECT_EQ((numero(u"0.1") + numero(u"0.2")).Texto(), u"0.3"_s);
    // Rounding to whole numbers with ties to even, as counts are; away from zero, as amounts are shown.
    for (const QString& caso : u"0.5 0 1|1.5 2 2|2.5 2 3|2.51 3 3|-2.5 -2 -3|-0.5 0 -1"_s.split(u'|')) {
        const Decimal valor = numero(caso.section(u' ', 0, 0));
        EXPECT_EQ(valor.RedondeaPar(0).Texto() + u' ' + valor.RedondeaFuera(0).Texto(), caso.section(u' ', 1));
    }
}

TEST(Decimal, TellsZeroAndSignHoweverLongTheText) {
    const QString largo(60, u'9');
    EXPECT_TRUE(EsNumericoCero(QString(60, u'0') + u".000"_s));
    EXPECT_FALSE(EsNumericoCero(u"0."_s + QString(60, u'0') + u'1'));
    EXPECT_FALSE(EsNumericoCero(u""));
    EXPECT_EQ(SignoDelValor(largo), 1);
    EXPECT_EQ(SignoDelValor(u'-' + largo), -1);
    EXPECT_EQ(SignoDelValor(u"-0.00"), 0);
    EXPECT_EQ(SignoDelValor(u"(5)"), 0);
}

QStringList Celdas(const QByteArray& linea) {
    QStringList celdas = QString::fromUtf8(linea).trimmed().split(u'|');
    celdas = celdas.mid(1, celdas.size() - 2);
    for (QString& celda : celdas)
        celda = celda.trimmed();
    return celdas;
}

/// A mask of every kind that the system's texts use, against every kind of input. The file's first row names the
/// inputs.
TEST(Format, GivesTheTableOfMasks) {
    QFile archivo(QStringLiteral(XA518_FORMAT_TABLE));
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    const QStringList entradas = Celdas(archivo.readLine());
    while (!archivo.atEnd()) {
        const QStringList fila = Celdas(archivo.readLine());
        ASSERT_EQ(fila.size(), entradas.size());
        for (qsizetype i = 1; i < fila.size(); ++i)
            EXPECT_EQ(Format(entradas[i], fila[0]), fila[i])
                << "Format(" << entradas[i].toStdString() << ", " << fila[0].toStdString() << ")";
    }
}

TEST(Format, RoundsSignsAndRefusesBeyondTheTable) {
    const struct {
        QString texto, mascara, esperado;
    } casos[] = {
        {u"1.005"_s, u"##0.#0"_s, u"1.01"_s}, // on the digits as written, where a binary number would give 1.00
        {u"999.995"_s, u"##0.#0"_s, u"1000.00"_s},
        {u"999999.5"_s, u"#,###,###,##0"_s, u"1,000,000"_s},
        {u"-0.4"_s, u"###########0"_s, u"0"_s},
        {u"-0.004"_s, u"###,###,###,##0.00;(###,###,###,##0.00)"_s, u"0.00"_s},
        {u"0.4"_s, u"############"_s, u""_s},
        {u" 5 "_s, u"00"_s, u"05"_s},
        {u"(1,234.5)"_s, u"###########0.#0"_s, u"-1234.50"_s},
        {u"1,23"_s, u"#0"_s, u"1,23"_s},
        {u"1E3"_s, u"#0"_s, u"1E3"_s},
        {u" "_s, u"#0"_s, u" "_s},
        {u"03/06/2024"_s, u"dd/mm/yyyy"_s, u"03/06/2024"_s},
    };
    for (const auto& [texto, mascara, esperado] : casos)
        EXPECT_EQ(Format(texto, mascara), esperado) << qPrintable(texto);
}

TEST(Text, UpperCaseStaysWithinWindows1252) {
    EXPECT_EQ(Mayusculas(u"ñandú gütiérrez ß µ ÿ œ?"), u"ÑANDÚ GÜTIÉRREZ ß µ Ÿ Œ?"_s);
}

/// The checksum sums these codes: the byte that the character has there, "?" for one that has none.
TEST(Text, KnowsTheCodesOfWindows1252) {
    const QString texto = u"Aáñ€Ÿ’日"_s;
    const QList<int> codigos = {65, 0xE1, 0xF1, 0x80, 0x9F, 0x92, 63};
    for (qsizetype i = 0; i < codigos.size(); ++i)
        EXPECT_EQ(CodigoWindows1252(texto[i]), codigos[i]) << i;
    for (int byte = 0; byte < 256; ++byte) {
        const char caracter = static_cast<char>(byte);
        EXPECT_EQ(CodigoWindows1252(DecodificaWindows1252({&caracter, 1})[0]), byte);
    }
    EXPECT_EQ(DecodificaWindows1252("A\xE1\xF1\x80\x9F\x92"), texto.chopped(1));
}

TEST(Text, TrimsBlanksOnlyAndCutsFromOne) {
    EXPECT_EQ(Recorta(u"  \ta b\u00a0 "), u"\ta b\u00a0"_s);
    EXPECT_EQ(Mid(u"abcdef", 5, 9), u"ef"_s);
}

TEST(Text, TellsUtf8FromOtherBytes) {
    EXPECT_TRUE(EsUtf8Valido("A\xC3\xB1"));
    for (const char* otros : {"A\xF1o", "A\xC3", "\xC0\xAF"}) // the last one is a slash in two bytes
        EXPECT_FALSE(EsUtf8Valido(otros)) << otros;
}

TEST(FileFailure, NamesWhatIsMissing) {
    const QTemporaryDir lugar(QDir::tempPath() + u"/falla"_s);
    const QString carpeta = lugar.path();
    EscribeEn(carpeta + u"/archivo"_s, "x");
    using enum Intento;
    const struct {
        QString nombre;
        NumeroError numero;
        QString texto;
    } casos[] = {
        {u"/nada"_s, NumeroError::ArchivoNoEncontrado, u"No se encuentra el archivo '%1/nada'."_s},
        {u"/no/hay/nada"_s, NumeroError::ArchivoNoEncontrado,
         u"No se encuentra el archivo '%1/no/hay/nada': no existe la carpeta '%1/no/hay'."_s},
        {u"/archivo/x"_s, NumeroError::AccesoAlDisco,
         u"No se puede leer el archivo '%1/archivo/x': '%1/archivo' no es una carpeta."_s},
    };
    for (const auto& [nombre, numero, texto] : casos) {
        const Error falla = FallaDeArchivo(Leer, carpeta + nombre);
        EXPECT_EQ(falla.Texto(), texto.arg(carpeta));
        EXPECT_TRUE(falla.Es(numero)) << qPrintable(nombre);
    }
}

#ifdef Q_OS_WIN

TEST(FileFailure, NamesAnotherProgramButNotThisOne) {
    const QTemporaryDir lugar;
    QFile archivo(lugar.filePath(u"archivo"_s));
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    EXPECT_EQ(FallaDeArchivo(Intento::Escribir, archivo.fileName()).Texto(),
              u"No se puede escribir el archivo '%1'."_s.arg(archivo.fileName()));
    archivo.close();
    const std::wstring nombre = archivo.fileName().toStdWString();
    const HANDLE ajeno = CreateFileW(nombre.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    for (const auto& [intento, verbo] : {std::pair(Intento::Leer, u"leer"_s), {Intento::Escribir, u"escribir"_s}})
        EXPECT_EQ(FallaDeArchivo(intento, archivo.fileName()).Texto(),
                  u"No se puede %1 el archivo '%2': otro programa lo tiene abierto."_s.arg(verbo, archivo.fileName()));
    CloseHandle(ajeno);
}

#else

/// Whoever runs the tests: to the superuser nothing is forbidden.
TEST(FileFailure, NamesWhatIsForbidden) {
    const QTemporaryDir lugar(QDir::tempPath() + u"/falla"_s);
    const QString carpeta = lugar.path();
    EscribeEn(carpeta + u"/archivo"_s, "x");
    ASSERT_TRUE(QFile::setPermissions(carpeta, QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther));
    ASSERT_TRUE(QFile::setPermissions(carpeta + u"/archivo"_s, QFile::ReadOwner));
    const bool todoPuede = geteuid() == 0;
    ASSERT_TRUE(!todoPuede || setresuid(65534, 65534, 0) == 0);
    using enum Intento;
    const Error nuevo = FallaDeArchivo(Escribir, carpeta + u"/nuevo"_s);
    EXPECT_EQ(nuevo.Texto(), u"No se puede escribir el archivo '%1/nuevo': no hay permiso para escribir en la "
                             "carpeta '%1'."_s.arg(carpeta));
    EXPECT_TRUE(nuevo.Es(NumeroError::AccesoAlDisco));
    QFile cerrado(carpeta + u"/archivo"_s);
    EXPECT_FALSE(cerrado.open(QIODevice::ReadWrite));
    const Error falla = FallaDeArchivo(Escribir, cerrado);
    EXPECT_FALSE(falla.Texto().contains(cerrado.errorString()));
    EXPECT_EQ(falla.Detalle(), cerrado.errorString());
    EXPECT_EQ(FallaDeCarpeta(carpeta).Texto(), u"No hay permiso para escribir en la carpeta '%1'."_s.arg(carpeta));
    ASSERT_TRUE(!todoPuede || setresuid(0, 0, 0) == 0);
    QFile::setPermissions(carpeta, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

#endif

TEST(Dates, AreRealDaysInTenCharacters) {
    for (const QString& texto : u"01/01/1850|29/02/2024|29/02/2000|31/12/2500"_s.split(u'|'))
        EXPECT_TRUE(EsFecha(texto)) << qPrintable(texto);
    for (const QString& texto : u"|29/02/2023|29/02/1900|31/04/2024|00/01/2024|01/13/2024|1/1/2024|01-01-2024|"
                                "2024/01/01|01/01/24|01/01/0000|0a/01/2024|+1/01/2024|01/01/2024 |__/__/____|"
                                "01/ 1/2024"_s.split(u'|'))
        EXPECT_FALSE(EsFecha(texto)) << qPrintable(texto);
}

} // namespace
