#include "DataFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <sys/wait.h>
#include <unistd.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class OpeningTest : public BaseDePrueba {
  protected:
    [[nodiscard]] QString Archivo(const QString& nombre, const QByteArray& bytes) const {
        QFile archivo(Ruta(nombre));
        EXPECT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(bytes);
        return archivo.fileName();
    }
    [[nodiscard]] static int NumeroAlAbrir(const QString& ruta) {
        return NumeroDe([&] { (void)Base::Abre(ruta); });
    }
};

TEST_F(OpeningTest, TellsWhatIsWrongWithTheFile) {
    EXPECT_EQ(NumeroAlAbrir(Ruta(u"nohay.db"_s)), 3024);
    EXPECT_FALSE(QFile::exists(Ruta(u"nohay.db"_s))); // and didn't make one
    EXPECT_EQ(NumeroAlAbrir(m_carpeta.path()), 3024);
    EXPECT_EQ(NumeroAlAbrir(u""_s), 3024);
    EXPECT_EQ(NumeroAlAbrir(Archivo(u"texto.db"_s, QByteArray(5000, 'x'))), SQLITE_NOTADB);
    EXPECT_EQ(NumeroAlAbrir(u"oracle://servidor/base"_s), 3170);
    EXPECT_EQ(NumeroDe([&] { (void)Base::Crea(m_base->Ruta()); }), 57); // never over an existing one
}

TEST_F(OpeningTest, MakesAPrivateFileUnderAnyName) {
    const QString carpeta = Ruta(u"Año 1 100% #x? 'y'"_s);
    ASSERT_TRUE(QDir().mkpath(carpeta));
    const QString ruta = carpeta + u"/base ñ.db"_s;
    Base::Crea(ruta)->Ejecuta(u"CREATE TABLE T (a TEXT)"_s);
    EXPECT_EQ(NumeroAlAbrir(ruta), 0);
    EXPECT_EQ(QDir(carpeta).entryList(QDir::Files), QStringList{u"base ñ.db"_s});
    const QFile::Permissions delGrupoYOtros =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(ruta) & delGrupoYOtros, QFile::Permissions());
}

/// The rules that keep a shared file whole over a power cut, as the engine itself reports them.
TEST_F(OpeningTest, SetsTheEnginesRules) {
    EXPECT_EQ(Lista(u"PRAGMA journal_mode"_s), u"delete"_s);
    EXPECT_EQ(Lista(u"PRAGMA synchronous"_s), u"3"_s);
    EXPECT_EQ(Lista(u"PRAGMA foreign_keys"_s), u"1"_s);
    EXPECT_EQ(Lista(u"PRAGMA trusted_schema"_s), u"0"_s);
}

/// The superuser may write anything, so the file is opened by a child that has become somebody else.
int NumeroAlAbrirComoOtroUsuario(const QString& ruta) {
    constexpr uid_t kNadie = 65534;
    const pid_t hijo = fork();
    if (hijo == 0) {
        if (geteuid() == 0 && (setgid(kNadie) != 0 || setuid(kNadie) != 0))
            _exit(1);
        _exit(NumeroDe([&] { (void)Base::Abre(ruta); }) == 3051 ? 51 : 2);
    }
    int estado = 0;
    waitpid(hijo, &estado, 0);
    return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}

TEST_F(OpeningTest, RefusesAReadOnlyOrUnreadableFileAsLocked) {
    m_base->Ejecuta(u"CREATE TABLE T (a TEXT)"_s);
    const QString ruta = m_base->Ruta();
    m_base.reset();
    QFile::setPermissions(m_carpeta.path(), QFile::Permissions(0x7755));
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::Permissions(0x4444)));
    EXPECT_EQ(NumeroAlAbrirComoOtroUsuario(ruta), 51);
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::Permissions()));
    EXPECT_EQ(NumeroAlAbrirComoOtroUsuario(ruta), 51);
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::Permissions(0x6600)));
    EXPECT_EQ(NumeroAlAbrir(ruta), 0);
}

} // namespace
} // namespace xa518
