#include "import/ImportFixture.h"
#include "import/RunMessages.h"
#include "import/frmTransferencia.h"
#include "support/FileDialogScript.h"
#include "support/FormDriver.h"
#include "values/FileFailure.h"

#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QTableView>

using testing::Each;
using testing::ElementsAre;

namespace {

const QString kOtraVez = u"¿Desea procesar el archivo nuevamente?"_s;
const QString kReposo = u"0          Registros Transferidos, 0          Registros Rechazados"_s;

class ImportForm : public testing::Test {
  protected:
    ImportForm() { Abre(); }

    /// A new opening of the dialog, on the folder that the profile remembers.
    void Abre() {
        EntornoImportacion entorno{ArchivoPerfil(m_escenario.base.Carpeta() + u"/XA000.INI"_s), m_archivos,
                                   [this](const ReporteDeErrores& pedido) {
                                       m_reportes.append({pedido.rutaErr, pedido.muestra});
                                       pedido.despues();
                                   },
                                   [this] {
                                       ++m_refrescos;
                                       if (m_bloqueada)
                                           throw ErrorBase(NumeroError::BaseBloqueada, u"Ocupada."_s);
                                   }};
        m_forma = std::make_unique<frmTransferencia>(m_escenario.proceso, m_avisos, m_escenario.clave, entorno);
        Muestra(*m_forma);
    }
    template <typename Control = QWidget>
    [[nodiscard]] Control& De(const char* nombre) const {
        return prueba::De<Control>(*m_forma, nombre);
    }
    void Pulsa(const char* boton) const { Clic(*m_forma, boton); }
    /// Runs once more; this is how it ends.
    void TransfiereOtraVez(const Mensaje& fin) {
        m_avisos.EsperaPregunta(kOtraVez, Respuesta::Si);
        m_avisos.Espera(fin);
        Pulsa("cmdTransferir");
    }
    void TecleaCarpeta(const QString& carpeta) const {
        auto& campo = De<QLineEdit>("TxtCarpeta");
        campo.setFocus();
        campo.selectAll();
        QTest::keyClick(&campo, Qt::Key_Delete);
        QTest::keyClicks(&campo, carpeta);
        QTest::keyClick(&campo, Qt::Key_Return);
    }
    [[nodiscard]] QString Cuentas() const {
        return De<QLabel>("lblTransferidos").text() + u", "_s + De<QLabel>("lblRechazados").text();
    }
    [[nodiscard]] QStringList Archivos() const {
        const auto& lista = De<QListWidget>("flListaFiles");
        QStringList nombres;
        for (int i = 0; i < lista.count(); ++i)
            nombres.append(lista.item(i)->text());
        return nombres;
    }
    void EscribeConRechazos() const {
        m_escenario.Escribe((LineaDe() + u'\n' + LineaDe({{Campo::TipoDoc, u"9"_s}}) + u'\n').toUtf8());
    }
    [[nodiscard]] QString Pregunta() const {
        return u"Algunos registros han sido rechazados!!\nVerifique Archivo Log: "_s + m_escenario.base.Carpeta() +
               u"/RPT051820990518018202610.Log\n¿Desea Visualizar Reporte de errores?"_s;
    }

    Escenario m_escenario;
    AvisosDePrueba m_avisos;
    QList<std::pair<QString, bool>> m_reportes;
    int m_refrescos = 0;
    bool m_bloqueada = false;
    DialogosDeArchivoDePrueba m_archivos;
    std::unique_ptr<frmTransferencia> m_forma;
};

TEST_F(ImportForm, TheListShowsTheExpectedFileAlone) {
    const QString carpeta = m_escenario.base.Carpeta();
    EscribeConRechazos();
    for (const QString& otro : {u"/051820990518018202610vc.txt"_s, u"/051820990518018202609.TXT"_s})
        ASSERT_TRUE(QFile::copy(m_escenario.RutaArchivo(), carpeta + otro));
    EXPECT_THAT(Archivos(), ElementsAre());
    TecleaCarpeta(carpeta);
    EXPECT_THAT(Archivos(), ElementsAre(u"051820990518018202610.TXT"_s));
    De("OptTipo_1").setFocus();
    QTest::keyClick(&De("OptTipo_1"), Qt::Key_Space);
    EXPECT_THAT(Archivos(), ElementsAre(u"051820990518018202610vc.txt"_s));

    ASSERT_TRUE(QDir(carpeta).mkdir(u"dentro"_s));
    TecleaCarpeta(QDir(carpeta).filePath(u".."_s));
    TecleaCarpeta(carpeta);
    auto& lista = De<QListWidget>("DirDirectorio");
    ASSERT_THAT(lista.findItems(u"dentro"_s, Qt::MatchExactly), testing::SizeIs(1));
    lista.setCurrentItem(lista.findItems(u"dentro"_s, Qt::MatchExactly).first());
    lista.setFocus();
    QTest::keyClick(&lista, Qt::Key_Return);
    EXPECT_EQ(De<QLineEdit>("TxtCarpeta").text(), QDir::toNativeSeparators(carpeta + u"/dentro"_s));
    EXPECT_THAT(Archivos(), ElementsAre());
}

TEST_F(ImportForm, ThePersonsOwnFoldersAreNear) {
    TecleaCarpeta(u"~"_s);
    EXPECT_EQ(De<QLineEdit>("TxtCarpeta").text(), QDir::toNativeSeparators(QDir::homePath()));
    EXPECT_EQ(De<QComboBox>("Drive1").currentData().toString(), QDir::homePath());
    Pulsa("cmdExaminar"); // and thinks better of it
    EXPECT_EQ(De<QLineEdit>("TxtCarpeta").text(), QDir::toNativeSeparators(QDir::homePath()));
    m_archivos.respuesta = m_escenario.base.Carpeta();
    Pulsa("cmdExaminar");
    EXPECT_EQ(De<QLineEdit>("TxtCarpeta").text(), QDir::toNativeSeparators(m_archivos.respuesta));
}

TEST_F(ImportForm, ADroppedFileBringsItsFolderAndItsKind) {
    m_escenario.Escribe("");
    const QString ventas = m_escenario.base.Carpeta() + u"/051820990518018202610VC.TXT"_s;
    ASSERT_TRUE(QFile::copy(m_escenario.RutaArchivo(), ventas));
    QMimeData datos;
    datos.setUrls({QUrl(u"https://example.org"_s), QUrl::fromLocalFile(ventas)});
    QDragEnterEvent entra({20, 20}, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_forma.get(), &entra);
    QDropEvent suelta({20, 20}, Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_forma.get(), &suelta);
    EXPECT_EQ(De<QLineEdit>("TxtCarpeta").text(), QDir::toNativeSeparators(m_escenario.base.Carpeta()));
    EXPECT_THAT(Archivos(), ElementsAre(u"051820990518018202610VC.TXT"_s));
}

TEST_F(ImportForm, RefusedLinesAskForTheReportAndBuildItInBothAnswers) {
    EscribeConRechazos();
    TecleaCarpeta(m_escenario.base.Carpeta());
    m_avisos.EsperaPregunta(Pregunta(), Respuesta::Si);
    Pulsa("cmdTransferir");
    EXPECT_EQ(Cuentas(), u"1 Transferidos, 1 Rechazados"_s);
    EXPECT_EQ(De<QProgressBar>("barraAvance").value(), 1000);
    m_avisos.EsperaPregunta(kOtraVez, Respuesta::No);
    Pulsa("cmdTransferir");
    EXPECT_EQ(m_avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(m_refrescos, 1);
    m_avisos.EsperaPregunta(kOtraVez, Respuesta::Si);
    m_avisos.EsperaPregunta(
        u"Este mismo archivo ya se importó en esta declaración: 051820990518018202610.TXT, 21/11/2026"
        " 10:00, usuario  (líneas: 1 transferida y 1 rechazada).\n¿Desea importarlo otra vez?"_s,
        Respuesta::Si);
    m_avisos.EsperaPregunta(Pregunta(), Respuesta::No);
    Pulsa("cmdTransferir");
    EXPECT_EQ(Cuentas(), u"0 Transferidos, 2 Rechazados"_s);
    const QString rutaErr = m_escenario.base.Carpeta() + u"/RPT051820990518018202610.Err"_s;
    EXPECT_THAT(m_reportes, ElementsAre(std::pair(rutaErr, true), std::pair(rutaErr, false)));
}

TEST_F(ImportForm, RefusedLinesAreSavedForASpreadsheet) {
    EscribeConRechazos();
    TecleaCarpeta(m_escenario.base.Carpeta());
    EXPECT_FALSE(De("cmdGuardarErrores").isEnabled());
    m_avisos.Espera(u"Prueba de 051820990518018202610.TXT: una línea sería rechazada.\nNo se ha guardado nada."_s);
    Pulsa("cmdProbar");
    EXPECT_THAT(m_escenario.Cuenta(), Each(0));
    EXPECT_THAT(m_reportes, ElementsAre());
    EXPECT_EQ(m_refrescos, 0);
    m_archivos.respuesta = m_escenario.base.Carpeta() + u"/errores.csv"_s;
    Pulsa("cmdGuardarErrores");
    EXPECT_EQ(m_archivos.ultimo.sugerido, m_escenario.base.Carpeta() + u"/051820990518018202610-errores.csv"_s);
    EXPECT_EQ(BytesDe(m_archivos.respuesta).count('\n'), 2);
    m_archivos.respuesta = u"/no/hay/errores.csv"_s;
    AvisosDelPrograma().Espera(FallaDeArchivo(Intento::Escribir, m_archivos.respuesta).Texto());
    Pulsa("cmdGuardarErrores");
}

/// As another import: the next one asks, and the report is there for who wants it.
TEST_F(ImportForm, RefusedLinesArePutRightInPlace) {
    m_escenario.Escribe((LineaDe() + u'\n' + LineaDe({{Campo::TipoDoc, u"9"_s}}) + u"\n1|2|\n"_s).toUtf8());
    TecleaCarpeta(m_escenario.base.Carpeta());
    EXPECT_FALSE(De("cmdCorregir").isEnabled());
    m_avisos.Espera(u"El archivo de importación no tiene el número de campos correctos"_s);
    Pulsa("cmdProbar");
    AlAbrir("FrmCorreccion",
            [](QWidget& forma) { EXPECT_EQ(prueba::De<QTableView>(forma, "GrdLineas").model()->rowCount(), 1); });
    Pulsa("cmdCorregir");
    EscribeConRechazos();
    m_avisos.EsperaPregunta(Pregunta(), Respuesta::No);
    Pulsa("cmdTransferir");
    const auto corrige = [this](const QString& tipo, bool queda) {
        AlAbrir("FrmCorreccion", [tipo](QWidget& forma) {
            QTest::keyClicks(QApplication::focusWidget(), tipo);
            Clic(forma, "CmdImportar");
        });
        Pulsa("cmdCorregir");
        EXPECT_EQ(De("cmdCorregir").isEnabled(), queda);
    };
    m_avisos.EsperaPregunta(u"Hay una línea corregida que no se ha importado ni guardado.\n¿Salir y perder las "
                            "correcciones?"_s,
                            Respuesta::Si);
    corrige(u"8"_s, true);
    EXPECT_THAT(m_reportes, testing::SizeIs(2));
    EXPECT_FALSE(m_reportes.last().second);
    corrige(u"4"_s, false);
    EXPECT_EQ(m_refrescos, 3);
    EXPECT_EQ(m_escenario.Cuenta().at(1), 2);
    m_avisos.EsperaPregunta(kOtraVez, Respuesta::No);
    Pulsa("cmdTransferir");
}

TEST_F(ImportForm, AFailedRunLeavesTheCountersAtRest) {
    TecleaCarpeta(m_escenario.base.Carpeta());
    m_avisos.Espera({Icono::Critico,
                     u"En la ruta indicada, no se encuentra el archivo a transferir, verifique la ruta"_s, u"Error"_s});
    Pulsa("cmdTransferir");
    EXPECT_EQ(Cuentas(), kReposo);
    EscribeConRechazos();
    m_avisos.EsperaPregunta(kOtraVez, Respuesta::Si);
    m_avisos.EsperaPregunta(Pregunta(), Respuesta::No);
    Pulsa("cmdTransferir");
    m_escenario.Escribe("1|2|\n");
    TransfiereOtraVez(
        {Icono::Critico, u"El archivo de importación no tiene el número de campos correctos"_s, u"Importar"_s});
    EXPECT_EQ(Cuentas(), kReposo);
    EXPECT_EQ(De<QLabel>("LblDefecto").text(),
              u"Línea 1: tiene 2 campos terminados en «|» y deben ser 18. Es la única así."_s);
    EXPECT_TRUE(De("cmdGuardarErrores").isEnabled());
    TecleaCarpeta({});
    TransfiereOtraVez({Icono::Informacion, u"Seleccionar directorio donde se encuentran\n\nlos archivos a transferir"_s,
                       u"Mensaje"_s});
    EXPECT_EQ(Cuentas(), kReposo);
}

/// Whatever stands in the way of what comes after the lines, the run's end is told, and the totals aren't forgotten.
TEST_F(ImportForm, FailuresBehindTheRunLeaveItsEnd) {
    m_escenario.base->Ejecuta(u"DROP TABLE F518PDET"_s);
    m_bloqueada = true;
    const QString sinTotales =
        PreguntaPorTotales(*m_escenario.Importa({LineaDe({{Campo::CreditoFiscal, u"2"_s}})}).sinTotales).texto;
    EscribeConRechazos();
    TecleaCarpeta(m_escenario.base.Carpeta());
    m_avisos.EsperaPregunta(Pregunta(), Respuesta::Si);
    m_avisos.EsperaPregunta(sinTotales, Respuesta::Si);
    m_avisos.EsperaPregunta(sinTotales, Respuesta::No);
    Pulsa("cmdTransferir");
    EXPECT_EQ(Cuentas(), u"1 Transferidos, 1 Rechazados"_s);
    EXPECT_THAT(m_reportes, testing::SizeIs(1));
    EXPECT_EQ(m_refrescos, 1);
    m_avisos.AlMostrar([this] { m_escenario.base->Ejecuta(u"CREATE TABLE F518PDET (doc_id_d TEXT)"_s); });
    m_avisos.EsperaPregunta(sinTotales, Respuesta::Si);
    Pulsa("cmCancelar");
    EXPECT_EQ(m_escenario.base.Filas(u"SELECT mto_base_p * 10 FROM TMPF518PCAB"_s), QStringList{u"1005"_s});
}

TEST_F(ImportForm, AFileWithoutItsFinalSeparatorStaysOpenUntilTheNextRunOrTheWayOut) {
    const auto estaAbierto = [this] {
        const QDir abiertos(u"/proc/self/fd"_s);
        const QFileInfoList todos = abiertos.entryInfoList(QDir::AllEntries | QDir::System);
        return std::any_of(todos.begin(), todos.end(),
                           [this](const QFileInfo& uno) { return uno.symLinkTarget() == m_escenario.RutaArchivo(); });
    };
    const auto sinSeparador = [&] {
        m_escenario.Escribe(LineaDe().toUtf8() + "x\n" + LineaDe().toUtf8() + "\n");
        TransfiereOtraVez({Icono::Critico, u"Cada línea del archivo debe terminar con el separador |"_s,
                           u"Error en archivo a cargar"_s});
        EXPECT_TRUE(estaAbierto());
        EXPECT_TRUE(De("cmdTransferir").isEnabled());
    };
    m_escenario.Escribe(""); // imports nothing, and that is no fault
    const Mensaje transferido{Icono::Informacion, u"Archivo : 051820990518018202610.TXT transferido"_s, u"Mensaje"_s};
    TecleaCarpeta(m_escenario.base.Carpeta());
    m_avisos.Espera(transferido);
    Pulsa("cmdTransferir");
    sinSeparador();
    sinSeparador();
    m_escenario.Escribe("");
    TransfiereOtraVez(transferido);
    EXPECT_FALSE(estaAbierto());
    sinSeparador();
    Pulsa("cmCancelar");
    EXPECT_FALSE(m_forma->isVisible());
    EXPECT_FALSE(estaAbierto());
    Abre(); // the last folder is remembered
    EXPECT_EQ(De<QLineEdit>("TxtCarpeta").text(), m_escenario.base.Carpeta());
}

TEST_F(ImportForm, TheLastImportIsUndoneAfterAQuestionAndTheSameFileNamedBeforeAnother) {
    m_escenario.Escribe(Muchas(3));
    TecleaCarpeta(m_escenario.base.Carpeta());
    EXPECT_FALSE(De("cmdDeshacer").isEnabled());
    const QString transferido = u"Archivo : 051820990518018202610.TXT transferido"_s;
    m_avisos.Espera(transferido);
    Pulsa("cmdTransferir");
    EXPECT_EQ(m_escenario.Cuenta(), QList<int>({1, 3, 3}));

    Abre(); // what was imported can be undone in any later opening
    ASSERT_TRUE(De("cmdDeshacer").isEnabled());
    const QString como =
        u"051820990518018202610.TXT, 21/11/2026 10:00, usuario  (líneas: 3 transferidas y 0 rechazadas)"_s;
    EXPECT_EQ(De("cmdDeshacer").toolTip(), como);
    const QString pregunta =
        u"Última importación: %1.\n\nAl deshacerla se van 1 cliente, 3 comprobantes y 3 comprobantes de pago, con"
        " 301.50 de monto cobrado y %2 de percepción. Los demás clientes vuelven a los totales que tenían.\n\n¿Desea"
        " deshacerla?"_s.arg(como, m_escenario.base.Filas(u"SELECT mto_imp_p FROM TMPF518PCAB"_s).join(u'|'));
    m_avisos.EsperaPregunta(
        u"Este mismo archivo ya se importó en esta declaración: %1.\n¿Desea importarlo otra vez?"_s.arg(como),
        Respuesta::No);
    Pulsa("cmdTransferir");
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    Pulsa("cmdDeshacer");
    EXPECT_EQ(m_escenario.Cuenta(), QList<int>({1, 3, 3}));
    m_refrescos = 0;
    m_avisos.EsperaPregunta(pregunta, Respuesta::Si);
    m_avisos.Espera(u"Se deshizo la importación de 051820990518018202610.TXT: se fueron 1 cliente, 3 comprobantes y 3"
                    " comprobantes de pago.\nPara que cambie también la declaración grabada, grábela."_s);
    Pulsa("cmdDeshacer");
    EXPECT_EQ(m_escenario.Cuenta(), QList<int>({0, 0, 0}));
    EXPECT_EQ(m_refrescos, 1);
    EXPECT_FALSE(De("cmdDeshacer").isEnabled());
    TransfiereOtraVez({Icono::Informacion, transferido, u"Mensaje"_s}); // it isn't in the declaration any more
    EXPECT_EQ(m_escenario.Cuenta(), QList<int>({1, 3, 3}));
}

TEST_F(ImportForm, TheWayOutEndsARunWithinALine) {
    m_escenario.Escribe(Muchas(60'000));
    TecleaCarpeta(m_escenario.base.Carpeta());
    QTimer mirada;
    QObject::connect(&mirada, &QTimer::timeout, m_forma.get(), [&] {
        if (De<QLabel>("lblTransferidos").text().startsWith(u'0'))
            return; // none is in yet
        mirada.stop();
        EXPECT_FALSE(De("cmdTransferir").isEnabled());
        EXPECT_FALSE(De("OptTipo_1").isEnabled());
        EXPECT_NE(m_forma->focusWidget(), &De("cmCancelar")) << "a key held down would end the run";
        QTest::mouseClick(&De("cmCancelar"), Qt::LeftButton);
        EXPECT_TRUE(m_forma->isVisible());
    });
    mirada.start(10);
    Pulsa("cmdTransferir");
    EXPECT_FALSE(m_forma->isVisible());
    const int filas = m_escenario.Cuenta().at(1);
    EXPECT_GT(filas, 0);
    EXPECT_LT(filas, 60'000);
}

} // namespace
