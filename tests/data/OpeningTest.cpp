#include "DataFixture.h"

#include "data/Workgroup.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include <sys/wait.h>
#include <unistd.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class OpeningTest : public BaseDePrueba {
  protected:
    [[nodiscard]] QString Ruta(const QString& nombre) const { return m_base.Carpeta() + u'/' + nombre; }
    [[nodiscard]] static int NumeroAlAbrir(const QString& ruta) {
        return NumeroDe([&] { (void)Base::Abre(ruta); });
    }
};

TEST_F(OpeningTest, TellsWhatIsWrongWithTheFile) {
    EXPECT_EQ(NumeroAlAbrir(Ruta(u"nohay.db"_s)), 3024);
    EXPECT_FALSE(QFile::exists(Ruta(u"nohay.db"_s))); // and didn't make one
    EXPECT_EQ(NumeroAlAbrir(m_base.Carpeta()), 3024);
    EXPECT_EQ(NumeroAlAbrir(u""_s), 3024);
    prueba::EscribeEn(Ruta(u"texto.db"_s), QByteArray(5000, 'x'));
    EXPECT_EQ(NumeroAlAbrir(Ruta(u"texto.db"_s)), SQLITE_NOTADB);
    EXPECT_EQ(NumeroAlAbrir(u"oracle://servidor/base"_s), 3170);
    EXPECT_EQ(NumeroDe([&] { (void)Base::Crea(m_base->Ruta()); }), 57); // never over an existing one
}

TEST_F(OpeningTest, MakesAPrivateFileUnderAnyName) {
    const QString carpeta = Ruta(u"Año 1 100% #x? 'y'"_s);
    ASSERT_TRUE(QDir().mkpath(carpeta));
    const QString ruta = carpeta + u"/base ñ.db"_s;
    Base::Crea(ruta)->Ejecuta(u"CREATE TABLE T (a TEXT)"_s);
    EXPECT_EQ(NumeroAlAbrir(ruta), 0);
    EXPECT_EQ(QFile::permissions(ruta) & prueba::kDeOtros, QFile::Permissions());
}

/// The rules that keep a shared file whole over a power cut, as the engine itself reports them.
TEST_F(OpeningTest, SetsTheEnginesRules) {
    EXPECT_EQ(Lista(u"PRAGMA journal_mode"_s), u"delete"_s);
    EXPECT_EQ(Lista(u"PRAGMA synchronous"_s), u"3"_s);
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
    const QString ruta = Ruta(u"otra.db"_s);
    Base::Crea(ruta)->Ejecuta(u"CREATE TABLE T (a TEXT)"_s);
    QFile::setPermissions(m_base.Carpeta(), QFile::Permissions(0x7755));
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::Permissions(0x4444)));
    EXPECT_EQ(NumeroAlAbrirComoOtroUsuario(ruta), 51);
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::Permissions()));
    EXPECT_EQ(NumeroAlAbrirComoOtroUsuario(ruta), 51);
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::Permissions(0x6600)));
    EXPECT_EQ(NumeroAlAbrir(ruta), 0);
}

TEST_F(OpeningTest, TheWorkgroupAdmitsItsAccountAndNoOther) {
    const QString ruta = Ruta(u"XA000.MDW"_s);
    const GrupoTrabajo grupo(ruta);
    const auto numero = [&grupo](const QString& usuario, const QString& clave) {
        return NumeroDe([&] { grupo.Verifica({usuario, clave}); });
    };
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 3028);
    grupo.Admite({u"usuario1"_s, u"clave001"_s});
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 0);
    EXPECT_EQ(numero(u"usuario1"_s, u"clave002"_s), 3029);
    EXPECT_EQ(numero(u"usuario2"_s, u"clave001"_s), 3029);
    EXPECT_EQ(QFile::permissions(ruta) & prueba::kDeOtros, QFile::Permissions());
    EXPECT_FALSE(prueba::BytesDe(ruta).contains("clave001"));
    prueba::EscribeEn(ruta, "{\"usuario1\": \"clave001\"} \x01 rubbish");
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 3029);
}

} // namespace
} // namespace xa518
