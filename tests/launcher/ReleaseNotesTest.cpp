#include "launcher/ReleaseNotes.h"

#include "family/Configuration.h"
#include "support/Test.h"

#include <QFileInfo>

namespace {

const QString kPagina = u"# Novedades\n\n## Versión 1.10.0\n\n- diez\n\n## Versión 1.9.1\n\n- nueve uno\n- ## no es\n\n"
                        "## Versión 1.9.0\n\n- nueve\n"_s;

TEST(ReleaseNotes, TellsTheVersionsAfterTheOneSeenAndNoneBeforeItsTime) {
    const QString diez = u"## Versión 1.10.0\n\n- diez\n\n"_s;
    const QString nueveUno = u"## Versión 1.9.1\n\n- nueve uno\n- ## no es\n\n"_s;
    const struct {
        QVersionNumber vista;
        QVersionNumber propia;
        QString esperado;
    } casos[] = {
        {{1, 9, 0}, {1, 10, 0}, diez + nueveUno},
        {{1, 9, 0}, {1, 9, 5}, nueveUno},
        {{1, 9, 1}, {1, 10, 0}, diez},
        {{1, 10, 0}, {1, 10, 1}, {}},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(NovedadesEntre(kPagina, caso.vista, caso.propia), caso.esperado)
            << qPrintable(caso.propia.toString());
}

/// The launcher's window tries the rest: told after an update, and once.
TEST(ReleaseNotes, NothingIsRememberedBeforeAnInstallationNorForgottenByAnEarlierProgram) {
    const QTemporaryDir carpeta;
    const ArchivoPerfil perfil(carpeta.filePath(u"XA000.INI"_s));
    EXPECT_EQ(NovedadesPorVer(perfil, kPagina, {1, 10, 0}), QString());
    EXPECT_FALSE(QFileInfo::exists(perfil.Ruta()));

    perfil.Escribe(kSeccionOpciones, u"SysVersion", u"1.9.0");
    EXPECT_NE(NovedadesPorVer(perfil, kPagina, {1, 9, 1}), QString());
    EXPECT_EQ(NovedadesPorVer(perfil, kPagina, {1, 9, 0}), QString());
    EXPECT_EQ(NovedadesPorVer(perfil, kPagina, {1, 9, 1}), QString());
}

} // namespace
