#include "launcher/FrmConsola.h"

#include "family/WorkLock.h"
#include "form518/Form0518.h"
#include "launcher/Declarants.h"
#include "launcher/RowTable.h"
#include "platform/Clock.h"
#include "support/FormDriver.h"
#include "support/ServerInstallation.h"
#include "support/TemporaryBase.h"
#include "widgets/FrmTexto.h"

#include <QFrame>
#include <QLabel>
#include <QTabWidget>
#include <QTextBrowser>

namespace {

const QString kOcupada = u"La base de datos está en uso por otro programa, o es de sólo lectura. Espere a que el otro"
                         " programa termine y vuelva a intentarlo."_s;

/// Types into the field that has the focus.
void Escribe(QWidget& ventana, const QString& texto) {
    for (const QChar c : texto)
        QTest::keyClick(ventana.focusWidget(), c.toLatin1());
}

/// An installation with the sample company, and the launcher's window over it.
class FrmConsolaTest : public testing::Test {
  protected:
    /// The opening made the installation the current folder.
    ~FrmConsolaTest() override { QDir::setCurrent(QDir::rootPath()); }

    void SetUp() override { (void)Sesion(entorno).Instala(true); }
    /// Opens the window and waits until its start is over.
    void Abre(VistaDeInforme vista = {}, VistasDeCambios cambios = {}) {
        ventana = std::make_unique<FrmConsola>(entorno, avisos, programas, std::move(vista), std::move(cambios));
        Muestra(*ventana);
        QCoreApplication::processEvents();
    }
    /// Goes to another window and comes back.
    void VaYVuelve() {
        QWidget otra;
        Muestra(otra);
        Muestra(*ventana);
    }

    template <typename T>
    [[nodiscard]] T& Control(const char* nombre) const {
        return De<T>(*ventana, nombre);
    }
    void Pulsa(const char* boton) const { Clic(*ventana, boton); }
    void Alt(Qt::Key letra) const {
        QTest::keyClick(ventana.get(), letra, Qt::AltModifier);
        QTest::qWait(120); // a mnemonic holds the button down for a tenth of a second
        EsperaTrabajos();
    }

    [[nodiscard]] TablaFilas& Tabla(const char* nombre) const { return Control<TablaFilas>(nombre); }
    /// The cells of a row, joined by "|".
    [[nodiscard]] static QString Fila(const TablaFilas& tabla, int fila) {
        QStringList celdas;
        for (int columna = 0; columna < tabla.model()->columnCount(); ++columna)
            celdas.append(tabla.model()->index(fila, columna).data().toString());
        return celdas.join(u'|');
    }
    [[nodiscard]] std::unique_ptr<Base> LaBase() const { return Base::Abre(RutaBase()); }
    [[nodiscard]] const QString& RutaBase() const { return lugar.Ruta(); }
    void Graba(const QString& periodo, int estado) const { AgregaCabecera(*LaBase(), kRucMuestra, periodo, estado); }
    /// A module's connection, on a server with its seat.
    [[nodiscard]] std::unique_ptr<Base> ModuloAbierto() const {
        auto base = LaBase();
        if (base->LosPuestos() != nullptr)
            (void)base->LosPuestos()->Toma({.usuario = u"ANA"_s, .equipo = u"CAJA-2"_s, .programa = u"xa518"_s});
        return base;
    }
    /// What is told to whoever asks for a declaration that another program has open.
    [[nodiscard]] QString PorQueEsAjena(const ClaveDeclaracion& clave) const {
        try {
            const TrabajoUnico otro(*LaBase(), clave);
        } catch (const TrabajoAjeno& ajeno) {
            return ajeno.Texto();
        }
        return {};
    }
    void Registra(const QString& secuencia, const QString& archivo) const {
        LaBase()->Ejecuta(u"INSERT INTO SPOOL VALUES ('PER006', ?, ?, '2026-11-21 09:05:00', 'CONTADOR', 6, ?)"_s,
                          {secuencia, archivo, kRucMuestra});
    }
    [[nodiscard]] QString Aviso() const {
        return Control<QFrame>("FraAviso").isVisible() ? Control<QLabel>("LblAviso").text() : QString();
    }

    QTemporaryDir raiz;
    QString carpeta{raiz.filePath(u"xa518"_s)};
    LugarDeInstalacion lugar{ArchivoPerfil(raiz.filePath(u"XA000.INI"_s)), carpeta};
    QString programas{raiz.filePath(u"bin"_s)};
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    EntornoConsola entorno{reloj, raiz.filePath(u"XA000.INI"_s), carpeta, u"CONTADOR"_s, {Formulario0518()}};
    AvisosDePrueba avisos;
    std::unique_ptr<FrmConsola> ventana;
};

TEST_F(FrmConsolaTest, ADeclarantIsAddedAndChangedByKeyboardAndAFaultKeepsWhatWasTyped) {
    Abre();
    const QString anterior = Declarantes(*LaBase()).Busca(Ruc(kRucMuestra))->nombre;
    avisos.Espera({Icono::Critico, u"El RUC '20990518019' no es válido."_s, u"Agregar declarante"_s});
    avisos.Espera(u"El declarante %1 ya está registrado, con el nombre '%2'."_s.arg(kRucMuestra, anterior));
    AlAbrir(u"FrmDeclarante", [](QWidget& forma) {
        auto& ruc = De<QLineEdit>(forma, "TxtRuc");
        Escribe(forma, u"20-990518019"_s);
        QTest::keyClick(forma.focusWidget(), Qt::Key_Return);
        Escribe(forma, u"LOS MOLLES"_s);
        QTest::keyClick(&forma, Qt::Key_A, Qt::AltModifier);
        QTest::qWait(120);
        EXPECT_TRUE(ruc.hasFocus());
        for (const QString& otro : {kRucMuestra, u"10412345679"_s}) {
            ruc.clear();
            Escribe(forma, otro);
            Clic(forma, "CmdAceptar");
        }
    });
    Alt(Qt::Key_A);
    TablaFilas& tabla = Tabla("GrdDeclarantes");
    EXPECT_EQ(Fila(tabla, tabla.Fila()), u"10412345679|LOS MOLLES|CONTADOR"_s);
    EXPECT_EQ(Declarantes(*LaBase()).Lista().size(), 2);
    EXPECT_EQ(Declarantes(*LaBase()).Busca(Ruc(kRucMuestra))->nombre, anterior);

    AlAbrir(u"FrmDeclarante", [](QWidget& forma) {
        EXPECT_FALSE(De<QLineEdit>(forma, "TxtRuc").isEnabled());
        De<QLineEdit>(forma, "TxtNombre").selectAll();
        Escribe(forma, u"QUINUALES"_s);
        for (int i = 0; i < 3; ++i) // over the user, who isn't the first of the list, to "Aceptar"
            QTest::keyClick(forma.focusWidget(), Qt::Key_Return);
    });
    LaBase()->Ejecuta(u"INSERT INTO CLAVES VALUES ('ANA', '1')"_s);
    Pulsa("CmdActualizar");
    QTest::keyClick(&tabla, Qt::Key_Return);
    EXPECT_EQ(Fila(tabla, tabla.Fila()), u"10412345679|QUINUALES|CONTADOR"_s);
}

TEST_F(FrmConsolaTest, ADeclarantGivenToSomebodyElseIsMarkedAndEscGivesNothing) {
    Abre();
    const QString vista = Fila(Tabla("GrdDeclarantes"), 0);
    for (const Qt::Key tecla : {Qt::Key_Escape, Qt::Key_Return}) {
        AlAbrir(u"FrmDeclarante", [&](QWidget& forma) {
            auto& usuario = De<QComboBox>(forma, "CmbUsuario");
            usuario.setFocus();
            usuario.lineEdit()->selectAll();
            Escribe(forma, u"JEFE"_s);
            QTest::keyClick(forma.focusWidget(), tecla);
            EXPECT_EQ(forma.isVisible(), tecla == Qt::Key_Return);
            if (forma.isVisible())
                QTest::keyClick(forma.focusWidget(), Qt::Key_Return);
        });
        Pulsa("CmdModificar");
        EXPECT_EQ(Fila(Tabla("GrdDeclarantes"), 0) == vista, tecla == Qt::Key_Escape);
    }
    EXPECT_TRUE(Fila(Tabla("GrdDeclarantes"), 0).endsWith(u"|JEFE (otro usuario)"_s));
    EXPECT_EQ(Control<QLabel>("LblDeclarantes").text(),
              u"Declarantes registrados: 1. De otro usuario: 1, que el módulo no muestra a CONTADOR."_s);
}

TEST_F(FrmConsolaTest, ADeclarantGoesAfterAQuestionAndOnlyWithoutDeclarations) {
    Graba(u"202609"_s, 0);
    Abre();
    const QString pregunta = u"¿Confirma que va a eliminar al declarante %1, %2?"_s.arg(
        kRucMuestra, Declarantes(*LaBase()).Busca(Ruc(kRucMuestra))->nombre);
    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    avisos.Espera(u"El declarante %1 tiene declaraciones: elimínelas primero."_s.arg(kRucMuestra));
    Pulsa("CmdEliminarDeclarante");
    LaBase()->Ejecuta(u"DELETE * FROM CAB"_s);
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Pulsa("CmdEliminarDeclarante");
    EXPECT_EQ(avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_TRUE(Declarantes(*LaBase()).Busca(Ruc(kRucMuestra)));
    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    Pulsa("CmdEliminarDeclarante");
    EXPECT_FALSE(Declarantes(*LaBase()).Busca(Ruc(kRucMuestra)));
    EXPECT_FALSE(Control<QPushButton>("CmdEliminarDeclarante").isEnabled());
}

TEST_F(FrmConsolaTest, SendsOnlyWhatIsCleanAfterAQuestion) {
    Graba(u"202609"_s, 0);
    Graba(u"202610"_s, 9);
    Abre();
    Alt(Qt::Key_R);
    TablaFilas& tabla = Tabla("GrdRegistradas");
    ASSERT_TRUE(Fila(tabla, 0).endsWith(u"|10/2026|No|20/11/2026|Con inconsistencias"_s)) << qPrintable(Fila(tabla, 0));
    avisos.Espera(u"La declaración del RUC %1 y el período 202610 fue grabada con inconsistencias: no puede ser"
                  " enviada."_s.arg(kRucMuestra));
    Alt(Qt::Key_E);

    QTest::keyClick(&tabla, Qt::Key_Down);
    const QString pregunta =
        u"¿Confirma el envío de la declaración?\n\nRUC: %1\nNombre: %2\nPeríodo: 09/2026\n\n"
        "Enviarla es pasarla a las copias enviadas de este equipo, donde ya no se puede modificar. "
        "%3"_s.arg(kRucMuestra, Declarantes(*LaBase()).Busca(Ruc(kRucMuestra))->nombre, kNadaSeTransmite);
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Alt(Qt::Key_E);
    EXPECT_EQ(tabla.model()->rowCount(), 2);

    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    const QString hecho = u"La declaración pasó a las copias enviadas.\n\nCopia enviada: %1\nNúmero de control:"
                          " 1000000%1\n\n%2"_s;
    avisos.Espera(hecho.arg(1).arg(kNadaSeTransmite));
    Alt(Qt::Key_E);
    EXPECT_EQ(tabla.model()->rowCount(), 1);
    EXPECT_TRUE(Fila(Tabla("GrdEnviadas"), 0).endsWith(u"|09/2026|1|No|10000001|21/11/2026|Enviada|Por registrar"_s));

    LaBase()->Ejecuta(u"DELETE * FROM CAB"_s);
    Graba(u"202609"_s, 0);
    Pulsa("CmdActualizar");
    {
        const ClaveDeclaracion clave{
            .ruc = Ruc(kRucMuestra), .periodo = Periodo(2026, 9), .formulario = kNumFormulario};
        const auto otro = ModuloAbierto();
        const TrabajoUnico forma(*otro, clave);
        avisos.Espera(PorQueEsAjena(clave));
        Alt(Qt::Key_E);
    }
    avisos.EsperaPregunta(pregunta + u"\n\nAtención: este mes ya fue enviado (copia 1), y esta declaración no dice que"
                                     " rectifique o sustituya a otra. Si la envía así, queda como otro original del"
                                     " mismo mes."_s,
                          Respuesta::Si);
    avisos.Espera(hecho.arg(2).arg(kNadaSeTransmite));
    Alt(Qt::Key_E);
}

TEST_F(FrmConsolaTest, ComingBackShowsWhatOthersDidAndABaseInUseLeavesTheWindowAsItWas) {
    Graba(u"202607"_s, 0);
    Graba(u"202609"_s, 0);
    Abre();
    TablaFilas& tabla = Tabla("GrdRegistradas");
    Alt(Qt::Key_R);
    QTest::keyClick(&tabla, Qt::Key_Down);
    Graba(u"202610"_s, 9);
    VaYVuelve();
    ASSERT_EQ(tabla.model()->rowCount(), 3);
    EXPECT_TRUE(Fila(tabla, tabla.Fila()).contains(u"07/2026"_s)) << "the chosen row is kept";
    LaBase()->Ejecuta(u"DELETE * FROM CAB WHERE periodo = '202607'"_s);
    {
        const auto otro = LaBase();
        otro->Ejecuta(u"BEGIN EXCLUSIVE"_s);
        QTest::keyClick(ventana.get(), Qt::Key_F5);
        EXPECT_EQ(Aviso(), kOcupada);
        EXPECT_EQ(tabla.model()->rowCount(), 3);
        avisos.Espera({Icono::Critico, kOcupada, u"Consola Orvel de Presentaciones"_s});
        Pulsa("CmdEnviar");
        otro->Ejecuta(u"ROLLBACK"_s);
    }
    VaYVuelve();
    EXPECT_EQ(Aviso(), QString());
    EXPECT_TRUE(Fila(tabla, tabla.Fila()).contains(u"09/2026"_s));
}

class FirstStartTest : public FrmConsolaTest {
    void SetUp() override {}
};

TEST_F(FirstStartTest, OffersToInstall) {
    const QString pregunta = u"Todavía no hay una instalación en este equipo.\n\n¿Desea crear la base de datos y su"
                             " catálogo en la carpeta '%1'?"_s.arg(QDir::toNativeSeparators(carpeta));
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Abre();
    EXPECT_EQ(Aviso(), u"Todavía no hay una instalación en este equipo."_s);
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Alt(Qt::Key_M); // the module has nothing to open yet
    EXPECT_FALSE(QFile::exists(carpeta));

    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    avisos.EsperaPregunta(
        u"¿Desea agregar también la empresa de ejemplo, con archivos para practicar la importación?"_s, Respuesta::Si);
    avisos.Espera(
        u"La instalación quedó lista en la carpeta '%1'.\n\nLos archivos para practicar están en su subcarpeta"
        " EJEMPLO."_s.arg(QDir::toNativeSeparators(carpeta + u'/')));
    Pulsa("CmdInstalar");
    EXPECT_EQ(Aviso(), QString());
    EXPECT_TRUE(Fila(Tabla("GrdDeclarantes"), 0).startsWith(kRucMuestra));
}

TEST_F(FrmConsolaTest, AnUpdateTellsOnceWhatIsNew) {
    const ArchivoPerfil perfil(entorno.rutaIni);
    const QString propia = perfil.Lee(u"Options", u"SysVersion");
    const auto novedades = [this] {
        Abre();
        const auto* forma = ventana->findChild<FrmTexto*>();
        return forma ? De<QTextBrowser>(*forma, "visor").toPlainText() : QString();
    };
    EXPECT_EQ(novedades(), QString()); // just installed
    perfil.Escribe(u"Options", u"SysVersion", u"1.0.0");
    const QString texto = novedades();
    EXPECT_TRUE(texto.contains(u"Versión "_s + propia) && texto.contains(u"Versión 1.5.0"_s)) << qPrintable(texto);
    EXPECT_EQ(novedades(), QString());
}

TEST_F(FrmConsolaTest, F1OpensTheHelpThatIsInstalled) {
    ventana = std::make_unique<FrmConsola>(entorno, avisos, programas); // even before its lists are read
    Muestra(*ventana);
    QTest::keyClick(ventana.get(), Qt::Key_F1);
    EXPECT_EQ(Control<QWidget>("FrmAyuda").windowTitle(), u"Ayuda - Consola"_s);
}

/// Its file is never looked for outside the folder of reports.
TEST_F(FrmConsolaTest, AReportOpensInThePreviewAndGoesWithItsFile) {
    const QString rpt = carpeta + u"/RPT/"_s;
    Registra(u"000001"_s, u"00000001.PRN"_s);
    Registra(u"000002"_s, u"00000002.PRN"_s);
    Registra(u"000003"_s, u"../XA000.MDW"_s);
    EscribeEn(rpt + u"00000001.PRN"_s, "<!nHojas!>12<!/nHojas!>\npPos|1|1|x|False|8|12|\n");
    QStringList vistos;
    Abre([&](QWidget&, const QString& en, const InformeRegistrado& informe) {
        vistos.append(QDir::fromNativeSeparators(en) + u'/' + informe.archivo);
    });
    Alt(Qt::Key_I);
    TablaFilas& tabla = Tabla("GrdInformes");
    const QString fila = u"Declaración|"_s + kRucMuestra + u"|21/11/2026 09:05|CONTADOR|"_s;
    EXPECT_EQ(Fila(tabla, 0), fila + u"Falta el archivo|00000002.PRN"_s);
    EXPECT_EQ(Fila(tabla, 1), fila + u"13|00000001.PRN"_s) << "as many as there are, whatever the head tells";
    const auto elimina = [&](const QString& archivo) {
        avisos.EsperaPregunta(u"¿Confirma que va a eliminar el informe «Declaración» del 21/11/2026 09:05 y su archivo"
                              " %1?"_s.arg(archivo),
                              Respuesta::Si);
        Pulsa("CmdEliminarInforme");
    };
    QTest::keyClick(&tabla, Qt::Key_Return);
    EXPECT_TRUE(vistos.isEmpty());
    EXPECT_EQ(Control<QPushButton>("CmdVer").toolTip(), u"Falta el archivo de este informe."_s);
    QTest::keyClick(&tabla, Qt::Key_Down);
    QTest::keyClick(&tabla, Qt::Key_Return);
    EXPECT_EQ(vistos, QStringList{rpt + u"00000001.PRN"_s});
    elimina(u"00000001.PRN"_s);
    EXPECT_FALSE(QFile::exists(rpt + u"00000001.PRN"_s));
    tabla.selectRow(1);
    EXPECT_FALSE(Control<QPushButton>("CmdVer").isEnabled());
    elimina(u"XA000.MDW"_s);
    EXPECT_TRUE(QFile::exists(carpeta + u"/XA000.MDW"_s));
    EXPECT_EQ(tabla.model()->rowCount(), 1);
}

TEST_F(FrmConsolaTest, ABrokenBaseIsToldAtTheStartAndACopyTakesItsPlaceAfterAQuestion) {
    Abre();
    Alt(Qt::Key_C);
    avisos.Espera(u"La copia de respaldo quedó guardada en '%1'."_s.arg(
        QDir::toNativeSeparators(carpeta + u"/RESPALDOS/XA000-20261121-100000.DB"_s)));
    Alt(Qt::Key_H);
    EscribeEn(RutaBase(), QByteArray(8192, 'x'));
    const QString falta =
        u"El archivo está dañado o no es una base de datos. Restaure una de sus copias de respaldo."_s;
    avisos.Espera(falta);
    Abre();
    EXPECT_FALSE(Control<QPushButton>("CmdAgregar").isEnabled());
    Alt(Qt::Key_C);
    const QString pregunta =
        u"¿Confirma que va a poner la base tal como estaba el 21/11/2026 10:00:00?\n\nLo que se "
        "hizo después dejará de estar en la base, salvo los números ya dados y los informes registrados. "
        "Antes se guarda una copia de lo que hay ahora."_s;
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Alt(Qt::Key_T);
    EXPECT_EQ(avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(Aviso(), falta);
    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    avisos.Espera(u"La base quedó como estaba el 21/11/2026 10:00:00."_s);
    Alt(Qt::Key_T);
    EXPECT_EQ(Aviso(), QString());
    EXPECT_TRUE(Control<QPushButton>("CmdAgregar").isEnabled());
}

// The base opens and its lists read well: only the check sees that an index has lost its rows.
TEST_F(FrmConsolaTest, AHiddenFaultOfTheBaseIsToldAtTheStart) {
    RompeIndice(RutaBase());
    const QStringList defectos = Respaldos::Defectos(*LaBase());
    ASSERT_FALSE(defectos.isEmpty());
    avisos.Espera(u"La revisión de la base encontró daños:\n\n%1\n\nRestaure una de sus copias de respaldo."_s.arg(
        u"La base tiene %1."_s.arg(CuentaDefectos(defectos))));
    Abre();
    EXPECT_EQ(Aviso(), u"La base está dañada: restaure una de sus copias de respaldo."_s);
}

TEST_F(FrmConsolaTest, AModuleThatCannotStartIsTold) {
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
    EscribeEn(modulo, "#!/no/existe\n");
    QFile::setPermissions(modulo, ejecutable);
    avisos.Espera(u"No se pudo iniciar '%1'. Revise que el programa esté completo y que se pueda ejecutar."_s.arg(
        QDir::toNativeSeparators(modulo)));
    Alt(Qt::Key_M);
}

TEST_F(FrmConsolaTest, ASentCopyIsRectifiedInItsModuleUnlessItsMonthIsRegistered) {
    Graba(u"202609"_s, 0);
    LaBase()->Ejecuta(u"INSERT INTO HCAB (Doc_id_d, tip_doc_d, periodo, Formulario, estado, rectifica, norden, correl)"
                      " SELECT Doc_id_d, tip_doc_d, periodo, Formulario, 1, '0', '0', '7' FROM CAB"_s);
    const QString dicho = raiz.filePath(u"dicho"_s);
    ASSERT_TRUE(QDir().mkpath(programas));
    EscribeEn(programas + u"/xa518"_s, "#!/bin/sh\necho \"$*\" > '" + dicho.toLocal8Bit() + "'\n");
    QFile::setPermissions(programas + u"/xa518"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Abre();
    Alt(Qt::Key_S);
    avisos.Espera(u"El período 09/2026 del RUC %1 ya tiene una declaración registrada, que todavía no se envía."
                  " Modifíquela en el módulo, o elimínela allí antes de rectificar esta copia."_s.arg(kRucMuestra));
    Alt(Qt::Key_T);
    EXPECT_FALSE(QFile::exists(dicho));
    LaBase()->Ejecuta(u"DELETE * FROM CAB"_s);
    Alt(Qt::Key_T);
    QFile leido(dicho);
    ASSERT_TRUE(QTest::qWaitFor([&] { return leido.exists() && leido.size() > 0; }));
    ASSERT_TRUE(leido.open(QIODevice::ReadOnly));
    const QStringList argumentos = QString::fromUtf8(leido.readAll()).simplified().split(u' ');
    const std::optional<ClaveDeclaracion> copia = CopiaPorRectificar(argumentos, kNumFormulario);
    ASSERT_TRUE(copia) << qPrintable(argumentos.join(u' '));
    EXPECT_EQ(copia->ruc.Texto() + copia->periodo.Texto() + copia->correl, kRucMuestra + u"2026097"_s);
    EXPECT_THROW((void)CopiaPorRectificar(argumentos.mid(0, 3), kNumFormulario), Error);
    EXPECT_FALSE(CopiaPorRectificar({u"--otra"_s}, kNumFormulario));
}

TEST_F(FrmConsolaTest, WhatARegisteredDeclarationChangesIsShownWhereItsMonthWasSent) {
    Graba(u"202609"_s, 0);
    QString mostrada;
    const auto vista = [&](QWidget& /*ventana*/, const Proceso& proceso, const CopiaEnviada& copia,
                           const QString& nombre) {
        mostrada = copia.clave.correl + u' ' + nombre;
        EXPECT_EQ(proceso.rutaRPT, QDir::toNativeSeparators(carpeta + u"/RPT"_s));
    };
    Abre({}, {{kNumFormulario, vista}});
    Alt(Qt::Key_R);
    avisos.Espera(u"Nada se ha enviado del período 09/2026 del RUC %1: no hay con qué comparar."_s.arg(kRucMuestra));
    Alt(Qt::Key_Q);
    LaBase()->Ejecuta(u"INSERT INTO HCAB (Doc_id_d, tip_doc_d, periodo, Formulario, correl) SELECT Doc_id_d, tip_doc_d,"
                      " periodo, Formulario, '7' FROM CAB"_s);
    Alt(Qt::Key_Q);
    EXPECT_EQ(mostrada, u"7 "_s + Declarantes(*LaBase()).Busca(Ruc(kRucMuestra))->nombre);
}

TEST_F(FrmConsolaTest, SeatsAreNoAffairOfAFile) {
    Abre();
    const auto& fichas = Control<QTabWidget>("TabFichas");
    EXPECT_FALSE(fichas.isTabVisible(fichas.indexOf(&Control<QWidget>("PagPuestos"))));
}

} // namespace
