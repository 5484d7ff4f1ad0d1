#include "launcher/FrmConsola.h"

#include "launcher/WindowFixture.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;
using prueba::kRuc;

const QString kRestaura = u"¿Confirma que va a poner la base tal como estaba el 21/11/2026 10:00:00?\n\nLo que se hizo"
                          " después dejará de estar en la base. Antes se guarda una copia de lo que hay ahora."_s;

/// What the window does besides declarants and declarations: installing, reports, copies, the module.
class FrmConsolaUpkeepTest : public prueba::Ventana {
  protected:
    void Registra(const QString& secuencia, const QString& archivo) const {
        LaBase()->Ejecuta(u"INSERT INTO SPOOL VALUES ('PER006', ?, ?, '2026-11-21 09:05:00', 'CONTADOR', 6, ?)"_s,
                          {secuencia, archivo, kRuc});
    }
};

TEST_F(FrmConsolaUpkeepTest, TheFirstStartOffersToInstall) {
    const QString pregunta = u"Todavía no hay una instalación en este equipo.\n\n¿Desea crear la base de datos y su"
                             " catálogo en la carpeta '%1'?"_s.arg(QDir::toNativeSeparators(carpeta));
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Abre();
    EXPECT_EQ(Aviso(), u"Todavía no hay una instalación en este equipo."_s);
    EXPECT_FALSE(QFile::exists(carpeta));

    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    avisos.EsperaPregunta(
        u"¿Desea agregar también la empresa de ejemplo, con archivos para practicar la importación?"_s, Respuesta::Si);
    avisos.Espera(
        u"La instalación quedó lista en la carpeta '%1/'.\n\nLos archivos para practicar están en su subcarpeta"
        " EJEMPLO."_s.arg(carpeta));
    Pulsa("CmdInstalar");
    EXPECT_EQ(Aviso(), QString());
    EXPECT_TRUE(Fila(Tabla("GrdDeclarantes"), 0).startsWith(kRuc));
}

TEST_F(FrmConsolaUpkeepTest, AReportOpensInThePreviewAndGoesWithItsFile) {
    Instala();
    const QString rpt = carpeta + u"/RPT/"_s;
    Registra(u"000001"_s, u"00000001.PRN"_s);
    Registra(u"000002"_s, u"00000002.PRN"_s);
    prueba::EscribeEn(rpt + u"00000001.PRN"_s, "<!font!>Courier New<!/font!>\n<!nHojas!> 12 <!/nHojas!>\n");
    QStringList vistos;
    Abre([&](QWidget&, const QString& en, const InformeRegistrado& informe) {
        vistos.append(en + u'/' + informe.archivo);
    });
    Alt(Qt::Key_I);
    TablaFilas& tabla = Tabla("GrdInformes");
    EXPECT_EQ(Fila(tabla, 0), u"Declaración|%1|21/11/2026 09:05|CONTADOR|Falta el archivo|00000002.PRN"_s.arg(kRuc));
    EXPECT_EQ(Fila(tabla, 1), u"Declaración|%1|21/11/2026 09:05|CONTADOR|12|00000001.PRN"_s.arg(kRuc));
    QTest::keyClick(&tabla, Qt::Key_Return);
    EXPECT_TRUE(vistos.isEmpty());
    EXPECT_EQ(Control<QPushButton>("CmdVer").toolTip(), u"Falta el archivo de este informe."_s);
    QTest::keyClick(&tabla, Qt::Key_Down);
    QTest::keyClick(&tabla, Qt::Key_Return);
    EXPECT_EQ(vistos, QStringList{rpt + u"00000001.PRN"_s});

    avisos.EsperaPregunta(u"¿Confirma que va a eliminar el informe «Declaración» del 21/11/2026 09:05 y su archivo"
                          " 00000001.PRN?"_s,
                          Respuesta::Si);
    Pulsa("CmdEliminarInforme");
    EXPECT_EQ(tabla.model()->rowCount(), 1);
    EXPECT_FALSE(QFile::exists(rpt + u"00000001.PRN"_s));
}

TEST_F(FrmConsolaUpkeepTest, AReportsFileIsNeverLookedForOutsideItsFolder) {
    Instala();
    Registra(u"000001"_s, u"../XA000.MDW"_s);
    Abre();
    Alt(Qt::Key_I);
    EXPECT_FALSE(Control<QPushButton>("CmdVer").isEnabled());
    avisos.EsperaPregunta(u"¿Confirma que va a eliminar el informe «Declaración» del 21/11/2026 09:05 y su archivo"
                          " XA000.MDW?"_s,
                          Respuesta::Si);
    Pulsa("CmdEliminarInforme");
    EXPECT_TRUE(QFile::exists(carpeta + u"/XA000.MDW"_s));
    EXPECT_EQ(Tabla("GrdInformes").model()->rowCount(), 0);
}

TEST_F(FrmConsolaUpkeepTest, ACopyPutsTheBaseBackAfterAQuestion) {
    Instala();
    Abre();
    Alt(Qt::Key_C);
    avisos.Espera(u"La copia de respaldo quedó guardada en '%1/RESPALDOS/XA000-20261121-100000.DB'."_s.arg(carpeta));
    Alt(Qt::Key_H);
    Graba(u"202609"_s, 0);
    avisos.EsperaPregunta(kRestaura, Respuesta::No);
    Alt(Qt::Key_T);
    EXPECT_EQ(avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(Tabla("GrdRegistradas").model()->rowCount(), 1);
    avisos.EsperaPregunta(kRestaura, Respuesta::Si);
    avisos.Espera(u"La base quedó como estaba el 21/11/2026 10:00:00."_s);
    Alt(Qt::Key_T);
    EXPECT_EQ(Tabla("GrdRegistradas").model()->rowCount(), 0);
    EXPECT_EQ(Tabla("GrdCopias").model()->rowCount(), 2);
}

TEST_F(FrmConsolaUpkeepTest, ABrokenBaseIsToldAtTheStartAndCanBeRestored) {
    Instala();
    (void)Sesion(entorno).Copias().Haz();
    prueba::EscribeEn(RutaBase(), QByteArray(8192, 'x'));
    const QString falta =
        u"El archivo está dañado o no es una base de datos. (file is not a database) Restaure una de sus copias de "
        "respaldo."_s;
    avisos.Espera(falta);
    Abre();
    EXPECT_EQ(Aviso(), falta);
    EXPECT_FALSE(Control<QPushButton>("CmdAgregar").isEnabled());
    Alt(Qt::Key_C);
    avisos.EsperaPregunta(kRestaura, Respuesta::Si);
    avisos.Espera(u"La base quedó como estaba el 21/11/2026 10:00:00."_s);
    Alt(Qt::Key_T);
    EXPECT_EQ(Aviso(), QString());
    EXPECT_TRUE(Control<QPushButton>("CmdAgregar").isEnabled());
}

// The base opens and its lists read well: only the check sees that an index has lost its rows.
TEST_F(FrmConsolaUpkeepTest, AHiddenFaultOfTheBaseIsToldAtTheStart) {
    Instala();
    {
        const auto base = LaBase();
        base->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFE', '0')"_s);
        Registros fila = base->Lee(u"SELECT rootpage FROM sqlite_master WHERE name = 'sqlite_autoindex_CLAVES_1'"_s);
        ASSERT_TRUE(fila.Siguiente());
        QFile archivo(RutaBase());
        ASSERT_TRUE(archivo.open(QIODevice::ReadWrite) && archivo.seek((fila.Entero(0) - 1) * 4096 + 3));
        archivo.write(QByteArray(2, '\0')); // the page's count of cells
    }
    const QStringList defectos = Respaldos::Defectos(*LaBase());
    ASSERT_FALSE(defectos.isEmpty());
    avisos.Espera(u"La revisión de la base encontró daños:\n\n%1\n\nRestaure una de sus copias de respaldo."_s.arg(
        defectos.join(u'\n')));
    Abre();
    EXPECT_EQ(Aviso(), u"La base está dañada: restaure una de sus copias de respaldo."_s);
}

TEST_F(FrmConsolaUpkeepTest, StartsTheModuleBesideItOrSaysWhatIsMissing) {
    Instala();
    Abre();
    const QByteArray camino = qgetenv("PATH");
    qputenv("PATH", raiz.filePath(u"vacia"_s).toLocal8Bit());
    avisos.Espera(
        u"No se encuentra el programa xa518, ni en '%1' ni en las carpetas de PATH. Instale el módulo y vuelva a"
        " intentarlo."_s.arg(QDir::toNativeSeparators(programas)));
    Alt(Qt::Key_M);
    qputenv("PATH", camino);

    const QString modulo = programas + u"/xa518"_s;
    ASSERT_TRUE(QDir().mkpath(programas));
    const auto ejecutable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    prueba::EscribeEn(modulo, "#!/no/existe\n");
    QFile::setPermissions(modulo, ejecutable);
    avisos.Espera(u"No se pudo iniciar '%1'. Revise que el programa esté completo y que se pueda ejecutar."_s.arg(
        QDir::toNativeSeparators(modulo)));
    Alt(Qt::Key_M);

    prueba::EscribeEn(modulo, "#!/bin/sh\n: > '" + raiz.filePath(u"iniciado"_s).toUtf8() + "'\n");
    Alt(Qt::Key_M);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(raiz.filePath(u"iniciado"_s)); }));
}

} // namespace
} // namespace xa518
