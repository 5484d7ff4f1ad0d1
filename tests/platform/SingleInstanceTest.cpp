#include "platform/SingleInstance.h"
#include "support/Test.h"

#ifndef Q_OS_WIN
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

TEST(SingleInstanceTest, HoldsForItsExecutableWhileTheHolderLives) {
    const QTemporaryDir carpeta;
    const QString ejecutable = carpeta.filePath(u"xa518"_s);
    EscribeEn(ejecutable, {});
    {
        InstanciaUnica propia(ejecutable, carpeta.path());
        EXPECT_TRUE(propia.Toma());
        EXPECT_FALSE(InstanciaUnica(ejecutable, carpeta.path()).Toma());
        EXPECT_TRUE(InstanciaUnica(ejecutable, u"/no/existe"_s).Toma()) << "a missing folder keeps nobody out";
        EXPECT_TRUE(InstanciaUnica(carpeta.filePath(u"consola"_s), carpeta.path()).Toma()) << "another executable";
    }
    EXPECT_TRUE(InstanciaUnica(ejecutable, carpeta.path()).Toma());
}

#ifndef Q_OS_WIN

TEST(SingleInstanceTest, HoldsNotAfterTheHoldersCrash) {
    const QTemporaryDir carpeta;
    const QString ejecutable = carpeta.filePath(u"xa518"_s);
    const QString enlace = carpeta.filePath(u"enlace"_s);
    EscribeEn(ejecutable, {});
    ASSERT_TRUE(QFile::link(ejecutable, enlace));
    const pid_t otro = fork();
    if (otro == 0) {
        InstanciaUnica suya(ejecutable, carpeta.path());
        raise(suya.Toma() ? SIGKILL : SIGTERM);
    }
    int fin = 0;
    waitpid(otro, &fin, 0);
    ASSERT_EQ(WTERMSIG(fin), SIGKILL) << "it had taken the mark";
    const QString marca = carpeta.filePath(QDir(carpeta.path()).entryList({u"*.lock"_s}).value(0));

    EXPECT_TRUE(InstanciaUnica(ejecutable, carpeta.path()).Toma());
    EscribeEn(marca, {});
    InstanciaUnica propia(ejecutable, carpeta.path());
    EXPECT_TRUE(propia.Toma()) << "it died before it had said its name";
    EXPECT_EQ(QFile::permissions(marca) & kDeOtros, QFile::Permissions());
    EscribeEn(marca, {});
    EXPECT_FALSE(InstanciaUnica(enlace, carpeta.path()).Toma()) << "the same executable behind a link, and no name";
}

#endif

} // namespace
