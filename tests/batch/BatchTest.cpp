#include "batch/Arguments.h"
#include "batch/BatchFixture.h"
#include "family/WorkLock.h"
#include "form518/UnsavedDeclaration.h"

#include <QProcess>

namespace {

TEST_F(Batch, PutsAsideWhatTheModuleHasLeftUnsavedAndSaysSo) {
    const auto base = Base::Abre(m_lugar.Ruta());
    TablaSinGrabar tabla(*base);
    tabla.Escribe({.nueva = true,
                   .clave = {.ruc = Ruc(kRuc), .periodo = Periodo(2026, 10), .formulario = u"0518"_s},
                   .escrito = u"{}"_s,
                   .usuario = u"ANA"_s,
                   .equipo = u"CAJA-1"_s,
                   .momento = QDateTime(QDate(2026, 11, 20), QTime(8, 51))});
    const QString archivos = u" --percepciones "_s + Ejemplo();
    EXPECT_EQ(Corre(u"importar --probar"_s + kClave + archivos), 0);
    EXPECT_TRUE(tabla.Lee()) << "a trial touches nothing";
    EXPECT_EQ(m_errores, QString());
    EXPECT_EQ(Corre(u"declarar --json --efectivo"_s + kClave + archivos), 0);
    EXPECT_TRUE(
        m_errores.contains(u", período 10/2026, con 0 comprobantes, del 20/11/2026 08:51. Quedó apartada por 7 días;"))
        << m_errores.toStdString();
    EXPECT_FALSE(tabla.Lee());
    EXPECT_EQ(tabla.Apartadas().size(), 1);
    EXPECT_EQ(Corre(u"declarar --efectivo"_s + kClave), 0);
    EXPECT_EQ(m_errores, QString());
}

TEST_F(Batch, DeclaresAMonthFromATextFile) {
    ASSERT_EQ(Corre(u"declarar"_s + kClave + u" --efectivo --json --percepciones "_s + Ejemplo()), 0)
        << m_errores.toStdString();
    EXPECT_EQ(Json()[u"transferidos"_s].toInt(), 245);
    EXPECT_EQ(Json()[u"rechazados"_s].toInt(), 0);
    EXPECT_EQ(Json()[u"estado"_s].toInt(), 0);
    EXPECT_EQ(Casilla(u"501"_s), u"60"_s);
    EXPECT_EQ(Casilla(u"510"_s), u"150"_s);
    EXPECT_EQ(Casilla(u"410"_s), Casilla(u"405"_s));
    EXPECT_EQ(Cuenta(u"F518PDET"_s), 150);
    EXPECT_EQ(m_errores, QString()) << "a progress line, and no terminal";

    // Again without a file: the stored rows and payment are what is declared, with the amounts given now.
    m_enTerminal = true;
    ASSERT_EQ(Corre(u"declarar"_s + kClave + u" --json --pagos-previos 100 --interes 7"_s), 0)
        << m_errores.toStdString();
    EXPECT_EQ(m_errores, u"\r\x1b[KGrabando la declaración...\r\x1b[K"_s);
    EXPECT_EQ(Casilla(u"402"_s), u"-100"_s);
    EXPECT_EQ(Casilla(u"405"_s).toInt(), Casilla(u"401"_s).toInt() - 93);
    EXPECT_EQ(Casilla(u"999"_s), u"E"_s);
    EXPECT_EQ(Cuenta(u"F518PDET"_s), 150);

    EXPECT_EQ(Corre(u"listar --json"_s), 0);
    EXPECT_EQ(Json()[u"declaraciones"_s].toArray().size(), 1);
}

TEST_F(Batch, SavesAndTellsInconsistencies) {
    ASSERT_EQ(Corre(u"declarar"_s + kClave + u" --json --percepciones "_s + Ejemplo()), 1);
    EXPECT_EQ(Json()[u"estado"_s].toInt(), 9);
    EXPECT_EQ(Json()[u"inconsistencias"_s].toArray().first().toString(), u"Indique la forma de pago."_s);
    ASSERT_EQ(Corre(u"validar"_s + kClave), 1);
    EXPECT_TRUE(m_salida.contains(u"Indique la forma de pago."_s));
    EXPECT_EQ(QString::fromUtf8(BytesDe(Casa() + u"/0518/Mens.txt"_s)), u"Indique la forma de pago.\n"_s);
    ASSERT_EQ(Corre(u"declarar"_s + kClave + u" --cheque 0017 --banco 02"_s), 0);
    ASSERT_EQ(Corre(u"validar"_s + kClave), 0);
    EXPECT_TRUE(m_salida.contains(u"La declaración no presenta inconsistencias."_s));
}

TEST_F(Batch, DeclaresBothFilesOfAMonth) {
    const QString archivos = u" --percepciones "_s + ArchivoDelMes() + u" --ventas "_s + Ejemplo();
    ASSERT_EQ(Corre(u"declarar"_s + kClave + archivos + u" --efectivo --json"_s), 0) << m_errores.toStdString();
    EXPECT_EQ(Json()[u"transferidos"_s].toInt(), 269);
    EXPECT_EQ(Cuenta(u"F518PDETVC"_s), 24);
    EXPECT_EQ(Cuenta(u"F518PDET"_s), 150);

    // The second file is looked through before anything of the first is written.
    ASSERT_TRUE(QFile::remove(Ejemplo() + u"/0518"_s + kRuc + u"202609VC.TXT"_s));
    EscribeArchivo("");
    EXPECT_EQ(Corre(u"importar"_s + kClave + archivos), 3);
    EXPECT_EQ(Cuenta(u"TMPF518PDET"_s), 174);
}

TEST_F(Batch, TriesAFileAndLogsAndListsItsFaults) {
    const QString octubre =
        u"importar --ruc 20990518018 --periodo 202610 --hoy 21/11/2026 --percepciones "_s + Ejemplo();
    const QString hoja = m_carpeta.filePath(u"errores.csv"_s);
    ASSERT_EQ(Corre(octubre + u" --json --probar --errores "_s + hoja), 1) << m_errores.toStdString();
    const int rechazados = Json()[u"rechazados"_s].toInt();
    EXPECT_EQ(Json()[u"archivos"_s].toArray(), QJsonArray{hoja});
    EXPECT_EQ(Cuenta(u"TMPF518PDET"_s), 0);
    EXPECT_EQ(BytesDe(hoja).count('\n'), rechazados + 1);
    const QString log = Casa() + u"/RPT0518"_s + kRuc + u"202610.Log"_s;
    EXPECT_FALSE(QFile::exists(log));

    EXPECT_EQ(Corre(octubre + u" --errores /no/hay/errores.csv"_s), 3);
    EXPECT_EQ(Cuenta(u"TMPF518PDET"_s), 0);

    EXPECT_EQ(Corre(octubre), 1);
    EXPECT_GE(rechazados, 12);
    EXPECT_EQ(BytesDe(log).count('\n'), rechazados);
    EXPECT_GT(Cuenta(u"TMPF518PDET"_s), 0);
    EXPECT_EQ(Cuenta(u"CAB"_s), 0); // importing declares nothing
}

TEST_F(Batch, RefusesWithoutWritingAnything) {
    ASSERT_EQ(Corre(u"declarar"_s + kClave + u" --efectivo --percepciones "_s + Ejemplo()), 0);
    const QString declarar = u"declarar"_s + kClave + u" --percepciones "_s + Ejemplo();
    const struct {
        QString orden;
        QByteArray archivo;
        QString mensaje;
    } casos[] = {
        {u"declarar --ruc 20100000009 --periodo 202609"_s, {}, u"no está registrado"_s},
        {u"declarar --ruc 20990518018 --periodo 202612 --hoy 21/11/2026"_s, {}, u"El período no es válido."_s},
        {u"declarar"_s + kClave + u" --cheque 0017 --banco ZZ"_s, {}, u"no está en el catálogo"_s},
        {u"validar --ruc 20990518018 --periodo 202608"_s, {}, u"No hay una declaración"_s},
        {u"declarar"_s + kClave + u" --ventas "_s + ArchivoDelMes(),
         {},
         u"se llama «0518"_s + kRuc + u"202609VC.TXT»"_s},
        {declarar, QByteArray(18, '|') + "x\n", u"debe terminar con el separador |"_s},
        {declarar, "\x7f\x45\x4c\x46\n\xff", u"no tiene el número de campos correctos"_s},
        {declarar, QByteArray(100'000'000, 'x'), u"tiene una línea de más de"_s},
    };
    for (const auto& [orden, archivo, mensaje] : casos) {
        if (!archivo.isEmpty())
            EscribeArchivo(archivo);
        EXPECT_EQ(Corre(orden), 2) << mensaje.toStdString();
        EXPECT_TRUE(m_errores.contains(mensaje)) << mensaje.toStdString() << ": " << qPrintable(m_errores);
        EXPECT_EQ(Cuenta(u"F518PDET"_s) + Cuenta(u"TMPF518PDET"_s), 300) << mensaje.toStdString();
    }
    EscribeArchivo("1|2|\n\n");
    const QString hoja = m_carpeta.filePath(u"errores.csv"_s);
    EXPECT_EQ(Corre(declarar + u" --json --errores "_s + hoja), 2);
    const QString detalle = u"Línea 1: tiene 2 campos terminados en «|» y deben ser 18. Hay 2 así."_s;
    EXPECT_EQ(Json()[u"rechazado"_s].toObject(), (QJsonObject{{u"archivo"_s, QFileInfo(ArchivoDelMes()).fileName()},
                                                              {u"motivo"_s, detalle},
                                                              {u"linea"_s, 1},
                                                              {u"campos"_s, 2},
                                                              {u"campos_esperados"_s, 18},
                                                              {u"lineas"_s, 2}}));
    EXPECT_TRUE(m_errores.contains(detalle));
    EXPECT_TRUE(QString::fromUtf8(BytesDe(hoja)).contains(detalle));
}

/// The program itself, because it has to make do without a display.
TEST_F(Batch, PrintsWithNoDisplay) {
    const auto imprime = [this](const QString& opciones) {
        QProcess lote;
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        for (const QString& pantalla : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s, u"XDG_RUNTIME_DIR"_s})
            entorno.remove(pantalla);
        entorno.insert(u"XDG_CONFIG_HOME"_s, m_carpeta.filePath(u"conf"_s));
        lote.setProcessEnvironment(entorno);
        lote.setWorkingDirectory(m_carpeta.path());
        lote.start(QStringLiteral(XA518_LOTE), opciones.split(u' ', Qt::SkipEmptyParts));
        EXPECT_TRUE(lote.waitForFinished());
        m_errores = QString::fromUtf8(lote.readAllStandardError());
        return lote.exitCode();
    };
    const auto hojas = [this](const QString& pdf) {
        QFile archivo(m_carpeta.filePath(pdf));
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll().count("/Type /Page\n") : -1;
    };
    EXPECT_EQ(imprime(u"declarar"_s + kClave + u" --efectivo --pdf pdf --percepciones "_s + Ejemplo()), 0);
    EXPECT_EQ(m_errores, QString());
    EXPECT_EQ(hojas(u"pdf/051820990518018202609.pdf"_s), 4); // 60 clients on pages of 20, and the totals
    const qsizetype anexo = hojas(u"pdf/051820990518018202609-anexo.pdf"_s);
    EXPECT_GT(anexo, 1);
    EXPECT_EQ(imprime(u"imprimir"_s + kClave + u" --anexos --pdf junto.pdf"_s), 0);
    EXPECT_EQ(hojas(u"junto.pdf"_s), 4 + anexo);

    const qint64 registrados = Cuenta(u"SPOOL"_s);
    EXPECT_EQ(imprime(u"imprimir"_s + kClave + u" --enviada 7 --pdf otro.pdf"_s), 2);
    EXPECT_EQ(imprime(u"imprimir"_s + kClave + u" --pdf no/hay/otro.pdf"_s), 3);
    EXPECT_EQ(hojas(u"otro.pdf"_s), -1);
    EXPECT_EQ(Cuenta(u"SPOOL"_s), registrados);
    Base::Abre(m_lugar.Ruta())->Ejecuta(u"UPDATE DET SET i_valor = '0' WHERE Casilla = '501'"_s);
    EXPECT_EQ(imprime(u"imprimir"_s + kClave + u" --anexos --pdf solo.pdf"_s), 4);
    EXPECT_GE(hojas(u"solo.pdf"_s), 1);
}

TEST_F(Batch, TellsWhatFailed) {
    const QString listar = u"listar"_s;
    const auto espera = [&](const QString& mensaje) {
        EXPECT_EQ(Corre(listar), 3) << mensaje.toStdString();
        EXPECT_TRUE(m_errores.contains(mensaje)) << m_errores.toStdString();
    };
    EXPECT_EQ(Corre(u"importar"_s + kClave + u" --percepciones /no/hay"_s), 3);
    EXPECT_EQ(m_errores, u"No se encuentra el archivo '/no/hay/051820990518018202609.TXT': no existe la carpeta "
                         "'/no/hay'. (error 53)\n"_s);
    EXPECT_EQ(Corre(u"imprimir"_s + kClave + u" --pdf /proc/version/x.pdf"_s), 3);
    EXPECT_EQ(m_errores, u"'/proc/version' no es una carpeta. (error 57)\n"_s);
    EXPECT_EQ(Cuenta(u"TMPF518PCAB"_s), 0);
    {
        const auto otro = Base::Abre(m_lugar.Ruta());
        const TrabajoUnico formaAbierta(
            *otro, {.ruc = Ruc(kRuc), .periodo = *Periodo::DeTabla(u"202609"_s), .formulario = u"0518"_s});
        for (const QString& orden : {u"importar"_s, u"declarar"_s}) {
            EXPECT_EQ(Corre(orden + kClave + u" --percepciones "_s + Ejemplo()), 3);
            EXPECT_TRUE(m_errores.contains(u"Otro programa tiene abierta una declaración."_s));
        }
        EXPECT_EQ(Cuenta(u"TMPF518PCAB"_s), 0);
        otro->Ejecuta(u"BEGIN EXCLUSIVE"_s);
        espera(
            u"La base de datos está ocupada por otro programa: espere a que termine y vuelva a intentarlo. (error 3051)\n"_s);
    }
    EscribeEn(Casa() + u"/XA000.DB"_s, QByteArray(4096, 'x'));
    espera(u"El archivo está dañado o no es una base de datos. (error 26)\nfile is not a database\n"_s);
    m_perfil.Escribe(kSeccionOpciones, u"DBName", u"");
    espera(u"Falta la clave DBName"_s);
    ASSERT_TRUE(QFile::remove(m_perfil.Ruta()));
    espera(u"consola --instalar"_s);
    EXPECT_FALSE(QFile::exists(m_perfil.Ruta()));
}

TEST_F(Batch, RefusesArgumentsThatDoNotFitTogether) {
    for (const QString& mala : {u""_s,
                                u"importar --ruc 20100000009"_s,
                                u"listar --ruc 2010000000x"_s,
                                u"listar --periodo 09/2026"_s,
                                u"exportar"_s + kClave,
                                u"borrar"_s + kClave + u" --enviada una"_s,
                                u"registrar-orden"_s + kClave + u" --enviada 1 --numero 12345678"_s,
                                u"declarar"_s + kClave + u" --rectifica --otro-original"_s,
                                u"validar"_s + kClave + u" --importe 5"_s,
                                u"importar"_s + kClave + u" --efectivo"_s,
                                u"declarar"_s + kClave + u" --efectivo --cheque 5 --banco 02"_s,
                                u"declarar"_s + kClave + u" --cheque 5"_s,
                                u"declarar"_s + kClave + u" --importe -5"_s,
                                u"declarar"_s + kClave + u" --interes 1234567890123"_s,
                                u"declarar"_s + kClave + u" --banco 02 --cheque 12\n3"_s,
                                u"declarar"_s + kClave + u" --banco 02 --cheque <b>"_s,
                                u"declarar"_s + kClave + u" --banco 02 --cheque "_s + QString(21, u'7'),
                                u"declarar --ruc 2099\n0518 --periodo 202609"_s,
                                u"validar --ruc 20990518018 --periodo 09/2026"_s,
                                u"declarar --ruc 20990518018 --periodo 202609 --hoy 31/02/2026"_s}) {
        EXPECT_EQ(Corre(mala), 2) << mala.toStdString();
        EXPECT_TRUE(m_errores.contains(u"Uso:"_s)) << mala.toStdString();
        EXPECT_EQ(m_salida, QString());
        EXPECT_EQ(Corre(mala + u" --json"_s), 2) << mala.toStdString();
        const QString defecto = Json()[u"mensajes"_s].toArray().first().toString();
        EXPECT_TRUE(!defecto.isEmpty() && m_errores.startsWith(u"xa518-lote: "_s + defecto)) << mala.toStdString();
        EXPECT_EQ(Json()[u"codigo"_s].toInt(), 2);
    }
    EXPECT_EQ(Corre(u"listar --nohay --help"_s), 0) << "asked for help, whatever else";
    EXPECT_TRUE(m_salida.startsWith(u"Uso:"_s));
}

TEST(Arguments, FoldersAreMadeAbsoluteBeforeTheInstallationBecomesCurrent) {
    const Lectura lectura =
        LeeArgumentos((u"xa518-lote importar"_s + kClave + u" --percepciones mes/uno"_s).split(u' '));
    ASSERT_TRUE(lectura.argumentos);
    EXPECT_EQ(lectura.argumentos->percepciones, QDir::current().absoluteFilePath(u"mes/uno"_s));
}

} // namespace
