#include "end_to_end/TwoDeclarations.h"
#include "support/TemporaryBase.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

constexpr int kMuertes = 45;

/// Starts a program that saves without end, and kills it that many microseconds into the save after `grabadas`.
void MataTras(const QString& ruta, int grabadas, int espera) {
    QProcess victima;
    victima.start(QStringLiteral(SAVE_VICTIM), {ruta});
    for (int lineas = 0; lineas <= grabadas; ++lineas) {
        while (!victima.canReadLine())
            ASSERT_TRUE(victima.waitForReadyRead(30000));
        victima.readLine();
    }
    QThread::usleep(static_cast<unsigned long>(espera));
    ASSERT_EQ(victima.state(), QProcess::Running);
    victima.kill();
    ASSERT_TRUE(victima.waitForFinished(10000));
    ASSERT_EQ(victima.exitStatus(), QProcess::CrashExit);
}

TEST(Kill, AKilledSaveLeavesTheOldDeclarationOrTheNewOne) {
    int argumentos = 0;
    const QCoreApplication aplicacion(argumentos, nullptr);
    const prueba::BaseTemporal base;
    base.Param(u"044"_s, u"6"_s, prueba::Funcion({{32, u"RUC"_s}, {46, u"11"_s}}));
    prueba::GrabaContenido(*base, prueba::Contenido::Otro);
    const QString otro = prueba::Retrato(*base);
    QElapsedTimer reloj;
    reloj.start();
    prueba::GrabaContenido(*base, prueba::Contenido::Uno);
    const auto duracion = static_cast<int>(reloj.nsecsElapsed() / 1000);
    const QString uno = prueba::Retrato(*base);
    ASSERT_NE(uno, otro);

    int quedoUno = 0;
    for (int muerte = 0; muerte < kMuertes; ++muerte) {
        // Each third kill falls into the first, second and third save, at moments spread over a save's length.
        MataTras(base.Ruta(), muerte % 3, muerte * duracion / kMuertes);
        const std::unique_ptr<Base> despues = Base::Abre(base.Ruta());
        const QString quedo = prueba::Retrato(*despues);
        EXPECT_TRUE(quedo == uno || quedo == otro) << "killed at moment " << muerte;
        quedoUno += quedo == uno ? 1 : 0;
        Registros integridad = despues->Lee(u"PRAGMA integrity_check"_s);
        ASSERT_TRUE(integridad.Siguiente());
        EXPECT_EQ(integridad.Texto(0), u"ok"_s);
    }
    EXPECT_GT(quedoUno, 0) << "no kill fell before or after a whole save of the first content";
    EXPECT_LT(quedoUno, kMuertes) << "no kill let the other content through";
}

} // namespace
