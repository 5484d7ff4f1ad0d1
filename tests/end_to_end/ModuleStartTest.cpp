#include "end_to_end/XScreen.h"

#include "Printers.h"
#include "platform/WindowSearch.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

const QString kModulo = u"0518 Agentes de Percepción Ventas Internas - v 1.5"_s;
const QString kSinIntegrador = u"Error al ejecutar el módulo"_s;
const QString kYaCorre = u"Declaración Pago Anual Impuesto a la Renta"_s;
constexpr int kPaciencia = 30000;

/// The real programs on a screen of their own, with a fresh installation.
class ModuleStart : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(m_pantalla.Enciende());
        qputenv("XDG_CONFIG_HOME", m_carpeta.filePath(u"config"_s).toUtf8());
        qputenv("XDG_RUNTIME_DIR", m_carpeta.path().toUtf8());
        qputenv("QT_QPA_PLATFORM", "xcb");
        ASSERT_EQ(
            QProcess::execute(QStringLiteral(CONSOLA), {u"--instalar"_s, u"--carpeta"_s, m_carpeta.filePath(u"xa"_s)}),
            0);
    }
    static void Arranca(QProcess& modulo) {
        modulo.setProcessChannelMode(QProcess::ForwardedChannels);
        modulo.start(QStringLiteral(XA518), QStringList());
        ASSERT_TRUE(modulo.waitForStarted(kPaciencia));
    }
    static bool SeVe(const QString& titulo) {
        const auto sistema = VentanasReales();
        return cWindows(*sistema).CorreApp(titulo);
    }
    /// Waits until that window shows.
    static bool Aparece(const QString& titulo) {
        QElapsedTimer reloj;
        reloj.start();
        while (!SeVe(titulo) && reloj.elapsed() < kPaciencia)
            QThread::msleep(20);
        return SeVe(titulo);
    }
    /// Closes a window as its close button does, until its program ends; the exit code.
    static int CierraYEspera(const QString& titulo, QProcess& modulo) {
        const auto sistema = VentanasReales();
        for (int veces = 0; veces < 100 && modulo.state() == QProcess::Running; ++veces) {
            cWindows(*sistema).CloseApp(titulo, {});
            modulo.waitForFinished(300);
        }
        EXPECT_EQ(modulo.exitStatus(), QProcess::NormalExit);
        return modulo.state() == QProcess::NotRunning ? modulo.exitCode() : -1;
    }

    prueba::PantallaX m_pantalla;
    QTemporaryDir m_carpeta;
};

TEST_F(ModuleStart, WantsTheLauncherBesideItAndRunsOnce) {
    QProcess solo;
    Arranca(solo);
    EXPECT_TRUE(Aparece(kSinIntegrador));
    EXPECT_FALSE(SeVe(kModulo));
    EXPECT_EQ(CierraYEspera(kSinIntegrador, solo), EXIT_FAILURE);

    m_pantalla.PonVentana(u"Consola Orvel de Presentaciones"_s);
    QProcess modulo;
    Arranca(modulo);
    EXPECT_TRUE(Aparece(kModulo));
    QProcess segundo;
    Arranca(segundo);
    EXPECT_TRUE(Aparece(kYaCorre));
    EXPECT_EQ(CierraYEspera(kYaCorre, segundo), EXIT_FAILURE);
    EXPECT_EQ(modulo.state(), QProcess::Running);
    EXPECT_EQ(CierraYEspera(kModulo, modulo), EXIT_SUCCESS);
}

} // namespace
