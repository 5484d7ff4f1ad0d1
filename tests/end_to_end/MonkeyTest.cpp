#include "end_to_end/Monkey.h"
#include "app/Configuration.h"
#include "app/MDIFrm.h"
#include "app/ModuleForms.h"
#include "data/Process.h"
#include "end_to_end/SampleModule.h"
#include "launcher/FrmConsola.h"
#include "reports/ShowReport.h"
#include "support/NoticeScript.h"

#include <QAction>
#include <QDir>
#include <QTextStream>

#include <gtest/gtest.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

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

class MonkeyTest : public prueba::ModuloDeMuestra {
  protected:
    void SetUp() override {
        ModuloDeMuestra::SetUp();
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
    qputenv("PATH", raiz.path().toLocal8Bit()); // the button of the module mustn't start one that is installed here
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
