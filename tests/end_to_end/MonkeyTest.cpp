#include "end_to_end/Monkey.h"
#include "app/Configuration.h"
#include "app/MDIFrm.h"
#include "app/ModuleForms.h"
#include "batch/Batch.h"
#include "data/Process.h"
#include "launcher/CommandLine.h"
#include "launcher/FrmConsola.h"
#include "platform/Clock.h"
#include "reports/ShowReport.h"
#include "support/NoticeScript.h"

#include <QAction>
#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

const QString kRuc = u"20990518018"_s;

/// Answers at random.
class AvisosAlAzar final : public Avisos {
  public:
    explicit AvisosAlAzar(prueba::Mono& mono) : m_mono(mono) {}

  private:
    void HazMuestra(const Mensaje& /*mensaje*/) override {}
    Respuesta HazPregunta(const Mensaje& /*mensaje*/, Respuesta /*preseleccionada*/) override {
        return m_mono.Azar(2) ? Respuesta::Si : Respuesta::No;
    }

    prueba::Mono& m_mono;
};

/// What isn't a fault of the program: the screen of the tests says that it lacks what a real one has.
bool EsDeLaPantalla(const QString& aviso) {
    return aviso.contains("This plugin does not support"_L1);
}

/// Each kind of complaint of the toolkit fails the test, once.
void AnotaAviso(QtMsgType tipo, const QMessageLogContext& /*lugar*/, const QString& aviso) {
    static QStringList vistos;
    if (tipo == QtDebugMsg || tipo == QtInfoMsg || EsDeLaPantalla(aviso) || vistos.contains(aviso))
        return;
    vistos.append(aviso);
    ADD_FAILURE() << "the toolkit complains: " << aviso.toStdString();
}

class MonkeyTest : public testing::Test {
  protected:
    void SetUp() override {
        qputenv("XDG_CONFIG_HOME", raiz.path().toLocal8Bit());
        const QString importados = carpeta + u"/EJEMPLO"_s;
        Consola({u"--instalar"_s, u"--carpeta"_s, carpeta, u"--ejemplo"_s});
        for (const QString& periodo : {u"202609"_s, u"202610"_s})
            Lote({u"declarar"_s, u"--ruc"_s, kRuc, u"--periodo"_s, periodo, u"--percepciones"_s, importados,
                  u"--efectivo"_s, u"--hoy"_s, u"21/11/2026"_s});
        Consola({u"--enviar"_s, kRuc, u"202609"_s});
        Lote({u"imprimir"_s, u"--ruc"_s, kRuc, u"--periodo"_s, u"202610"_s, u"--pdf"_s, raiz.filePath(u"hoja.pdf"_s),
              u"--hoy"_s, u"21/11/2026"_s}); // and so there is a report for the launcher to show
        Lote({u"declarar"_s, u"--ruc"_s, kRuc, u"--periodo"_s, u"202609"_s, u"--percepciones"_s, importados,
              u"--cheque"_s, u"17"_s, u"--banco"_s, u"02"_s, u"--rectifica"_s, u"--hoy"_s, u"21/11/2026"_s});
        ASSERT_TRUE(fallas.isEmpty()) << fallas.toStdString();
        anterior = qInstallMessageHandler(AnotaAviso);
    }
    void TearDown() override {
        qInstallMessageHandler(anterior);
        QDir::setCurrent(QDir::rootPath());
        const auto base = Base::Abre(carpeta + u"/XA000.DB"_s);
        Registros integridad = base->Lee(u"PRAGMA integrity_check"_s);
        ASSERT_TRUE(integridad.Siguiente());
        EXPECT_EQ(integridad.Texto(0), u"ok"_s);
        EXPECT_GT(mono.Pasos(), 100);
        RecordProperty("pasos", mono.Pasos());
        QTextStream(stdout) << mono.Informe() << '\n';
    }
    void Consola(const QStringList& orden) {
        QTextStream errores(&fallas);
        (void)EjecutaConsola(QStringList{u"consola"_s} + orden, nada, errores, entorno);
    }
    void Lote(const QStringList& orden) {
        QTextStream errores(&fallas);
        (void)EjecutaLote(QStringList{u"xa518-lote"_s} + orden, {PerfilCompartido(), nada, errores});
    }

    QTemporaryDir raiz;
    QString carpeta{raiz.filePath(u"xa518"_s)};
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    EntornoConsola entorno{reloj, raiz.filePath(kArchivoIni), carpeta, u"CONTADOR"_s};
    QString fallas;
    QString descartado;
    QTextStream nada{&descartado};
    QtMessageHandler anterior = nullptr;
    prueba::Mono mono;
    AvisosAlAzar avisos{mono};
};

TEST_F(MonkeyTest, TheModuleStandsAnything) {
    while (mono.Sigue()) {
        Proceso proceso(reloj);
        MDIFrm principal(proceso, avisos, PerfilCompartido(), FormasDelModulo(proceso, avisos));
        ASSERT_TRUE(principal.Carga());
        // Nobody finds the way to every form by chance alone: a command opens one now and then.
        mono.Juega(principal, principal.findChildren<QAction*>());
    }
}

TEST_F(MonkeyTest, TheLauncherStandsAnything) {
    const VistaDeInforme vista = [this](QWidget& ventana, const QString& informes, const InformeRegistrado& informe) {
        MuestraReporte({informes, informe.usuario, reloj, avisos}, {informe.archivo, informe.Titulo(), {}}, &ventana);
    };
    while (mono.Sigue()) {
        FrmConsola principal(entorno, avisos, raiz.filePath(u"nada"_s), vista);
        principal.show();
        mono.Juega(principal, {});
    }
}

} // namespace
} // namespace xa518
