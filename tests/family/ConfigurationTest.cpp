#include "family/Configuration.h"

#include "family/InstallationFixture.h"

namespace {

class ConfigurationTest : public InstalacionDePrueba {
  protected:
    void Pon(const QString& clave, const QString& valor) const { perfil.Escribe(kSeccionOpciones, clave, valor); }
    [[nodiscard]] int NumeroAlAbrir() {
        LeerIni(proceso, perfil);
        Pon(u"SystemDB"_s, u"ajeno"_s);
        try {
            AbrirBase(proceso, perfil);
        } catch (const ErrorBase& error) {
            return error.Numero();
        }
        return 0;
    }
};

TEST_F(ConfigurationTest, DerivesThePathsFromTheInstallationFolder) {
    const QString carpeta = base.Carpeta() + u'/';
    Pon(u"SysPath"_s, u"  "_s + carpeta + u"  "_s);
    Pon(u"DBPath"_s, u"\"/datos/\""_s);
    Pon(u"SysUser"_s, u"\" JEFA \""_s);
    LeerIni(proceso, perfil);
    EXPECT_EQ(proceso.rutaBase, u"/datos/XA.DB"_s);
    EXPECT_EQ(proceso.rutaRPT, carpeta + u"RPT"_s);
    EXPECT_EQ(proceso.sysUser, u"JEFA"_s);
    EXPECT_EQ(QDir::currentPath(), QDir(carpeta).canonicalPath());
    Pon(u"SysPath"_s, u"/srv/xa"_s); // no separator is added, and a folder that isn't there doesn't become current
    LeerIni(proceso, perfil);
    EXPECT_EQ(proceso.rutaRPT, u"/srv/xaRPT"_s);
    EXPECT_EQ(QDir::currentPath(), QDir(carpeta).canonicalPath());
}

TEST_F(ConfigurationTest, NumbersEachRefusalAndRewritesSystemDbEvenThen) {
    const QString grupo = base.Carpeta() + u"/XA000.MDW"_s;
    std::unique_ptr<Base> otro;
    const struct {
        const char* porQue;
        std::function<void()> estropea;
        int numero;
    } casos[] = {
        {"nothing wrong", [] {}, 0},
        {"locked by another program", [&] { otro = Bloquea(); }, 3051},
        {"base missing",
         [&] {
             otro.reset();
             QFile::remove(base.Ruta());
         },
         3024},
        {"account refused", [&] { perfil.Escribe(u"Grupo", u"Clave", u"0000000000000000"); }, 3029},
        {"workgroup file missing", [&] { QFile::remove(grupo); }, 3028},
    };
    for (const auto& [porQue, estropea, numero] : casos) {
        estropea();
        EXPECT_EQ(NumeroAlAbrir(), numero) << porQue;
        EXPECT_EQ(perfil.Lee(kSeccionOpciones, u"SystemDB"), grupo) << porQue;
        EXPECT_EQ(proceso.baseDatos == nullptr, numero != 0) << porQue;
        proceso.baseDatos.reset();
    }
}

} // namespace
