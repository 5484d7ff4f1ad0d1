#include "platform/SingleInstance.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

/// Another process that takes the mark, tells so, and waits to be killed.
class OtroProceso {
  public:
    explicit OtroProceso(const QString& ejecutable, const QString& carpeta) {
        EXPECT_EQ(pipe(m_tubo), 0);
        m_pid = fork();
        if (m_pid == 0) {
            InstanciaUnica suya(ejecutable, carpeta);
            const char toma = suya.Toma() ? 's' : 'n';
            (void)!write(m_tubo[1], &toma, 1);
            for (;;)
                pause();
        }
    }
    [[nodiscard]] bool Tomo() const {
        char toma = 0;
        return read(m_tubo[0], &toma, 1) == 1 && toma == 's';
    }
    void Mata() const {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }

  private:
    int m_tubo[2] = {};
    pid_t m_pid = -1;
};

TEST(SingleInstanceTest, HoldsWhileTheHolderLivesAndNotAfterItsCrash) {
    const QTemporaryDir carpeta;
    const QString ejecutable = carpeta.filePath(u"xa518"_s);
    const OtroProceso otro(ejecutable, carpeta.path());
    ASSERT_TRUE(otro.Tomo());

    InstanciaUnica propia(ejecutable, carpeta.path());
    EXPECT_FALSE(propia.Toma());
    EXPECT_TRUE(InstanciaUnica(ejecutable, u"/no/existe"_s).Toma()) << "a missing folder keeps nobody out";
    EXPECT_TRUE(InstanciaUnica(carpeta.filePath(u"consola"_s), carpeta.path()).Toma()) << "another executable";

    otro.Mata();
    EXPECT_TRUE(propia.Toma());
}

TEST(SingleInstanceTest, KnowsTheExecutableBehindALink) {
    const QTemporaryDir carpeta;
    const QString ejecutable = carpeta.filePath(u"xa518"_s);
    const QString enlace = carpeta.filePath(u"enlace"_s);
    QFile archivo(ejecutable);
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly) && QFile::link(ejecutable, enlace));

    InstanciaUnica primera(ejecutable, carpeta.path());
    ASSERT_TRUE(primera.Toma());
    EXPECT_FALSE(InstanciaUnica(enlace, carpeta.path()).Toma());
}

} // namespace
} // namespace xa518
