#include "app/Configuration.h"

#include "Printers.h"
#include "data/Process.h"
#include "data/SchemaVersion.h"
#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class ConfigurationTest : public testing::Test {
  protected:
    ConfigurationTest() : m_antes(QDir::currentPath()), m_perfil(m_carpeta.filePath(u"XA000.INI"_s)) {}
    ~ConfigurationTest() override { QDir::setCurrent(m_antes); }

    void Pon(const QString& clave, const QString& valor) const { m_perfil.Escribe(kSeccionOpciones, clave, valor); }
    /// An installation as the launcher leaves it.
    void Instala() {
        Pon(u"SysPath"_s, m_carpeta.path() + u'/');
        Pon(u"DBPath"_s, m_carpeta.path() + u'/');
        Pon(u"DBName"_s, u"XA000.MDB"_s);
        GrupoTrabajo(m_carpeta.filePath(kArchivoGrupo)).Admite(CuentaConfigurada(m_perfil));
        const auto base = Base::Crea(m_carpeta.filePath(u"XA000.MDB"_s));
        base->Ejecuta(u"CREATE TABLE PARAM (Numero TEXT, Argumento TEXT, Funcion TEXT)"_s);
        base->Ejecuta(u"INSERT INTO PARAM VALUES ('830','01','209912 X')"_s);
        base->Ejecuta(u"PRAGMA user_version=%1"_s.arg(kVersionEsquema));
    }
    [[nodiscard]] int NumeroAlAbrir() {
        LeerIni(m_proceso, m_perfil);
        Pon(u"SystemDB"_s, u"ajeno"_s);
        try {
            AbrirBase(m_proceso, m_perfil);
        } catch (const ErrorBase& error) {
            return error.Numero();
        }
        return 0;
    }

    QString m_antes;
    QTemporaryDir m_carpeta;
    ArchivoPerfil m_perfil;
    RelojFijo m_reloj{QDateTime(QDate(2024, 6, 3), QTime(10, 0))};
    Proceso m_proceso{m_reloj};
};

TEST_F(ConfigurationTest, DerivesThePathsFromTheInstallationFolder) {
    const QString carpeta = m_carpeta.path() + u'/';
    Pon(u"SysPath"_s, u"  "_s + carpeta + u"  "_s);
    Pon(u"DBPath"_s, u"\"/datos/\""_s);
    Pon(u"DBName"_s, u"BASE.MDB"_s);
    Pon(u"SysMenu"_s, u"menu.exe"_s);
    Pon(u"SysVersion"_s, u"1.5"_s);
    Pon(u"SysUser"_s, u"\" JEFA \""_s);
    LeerIni(m_proceso, m_perfil);
    EXPECT_EQ(m_proceso.sysPath, carpeta);
    EXPECT_EQ(m_proceso.rutaBase, u"/datos/BASE.MDB"_s);
    EXPECT_EQ(m_proceso.rutaMenu, carpeta + u"menu.exe"_s);
    EXPECT_EQ(m_proceso.rutaRPT, carpeta + u"RPT"_s);
    EXPECT_EQ(m_proceso.rutaTMP, carpeta + u"TMP"_s);
    EXPECT_EQ(m_proceso.rutaTMPBarra, carpeta + u"TMP/"_s);
    EXPECT_EQ(m_proceso.rutaBMP, carpeta + u"BMP/"_s);
    EXPECT_EQ(m_proceso.sysVersion, u"1.5"_s);
    EXPECT_EQ(m_proceso.sysUser, u"JEFA"_s);
    EXPECT_EQ(QDir::currentPath(), QDir(carpeta).canonicalPath());
}

TEST_F(ConfigurationTest, TakesNoSeparatorThatTheFileDoesNotGive) {
    Pon(u"SysPath"_s, u"/srv/xa"_s);
    Pon(u"DBPath"_s, u"/srv/datos"_s);
    Pon(u"DBName"_s, u"B.MDB"_s);
    LeerIni(m_proceso, m_perfil);
    EXPECT_EQ(m_proceso.rutaRPT, u"/srv/xaRPT"_s);
    EXPECT_EQ(m_proceso.rutaBase, u"/srv/datosB.MDB"_s);
    EXPECT_EQ(QDir::currentPath(), m_antes); // a folder that isn't there
}

TEST_F(ConfigurationTest, ReadsMissingKeysAsEmptyAndFailsAtTheOpening) {
    m_proceso.sysUser = u"antes"_s;
    LeerIni(m_proceso, m_perfil);
    EXPECT_EQ(m_proceso.sysPath + m_proceso.rutaBase + m_proceso.sysUser, u""_s);
    EXPECT_EQ(m_proceso.rutaRPT, u"RPT"_s);
    EXPECT_EQ(NumeroAlAbrir(), 3028);
    GrupoTrabajo(m_carpeta.filePath(kArchivoGrupo)).Admite(CuentaConfigurada(m_perfil));
    Pon(u"SysPath"_s, m_carpeta.path() + u'/');
    EXPECT_EQ(NumeroAlAbrir(), 3024);
}

TEST_F(ConfigurationTest, OpensTheInstalledBaseAndReadsItsFirstValue) {
    Instala();
    EXPECT_EQ(NumeroAlAbrir(), 0);
    LeerCatalogoInicial(m_proceso);
    EXPECT_EQ(m_proceso.fechaPrimerIgv, u"209912"_s);
    EXPECT_EQ(m_proceso.baseDatos->Ruta(), m_carpeta.filePath(u"XA000.MDB"_s));
}

TEST_F(ConfigurationTest, NumbersEachRefusalAndRewritesSystemDbEvenThen) {
    Instala();
    const QString grupo = m_carpeta.path() + u"/XA000.MDW"_s;
    struct Caso {
        const char* porQue;
        std::function<void()> estropea;
        int numero;
    };
    sqlite3* otro = nullptr;
    const QList<Caso> casos = {
        {"locked by another program",
         [&] {
             sqlite3_open(QFile::encodeName(m_carpeta.filePath(u"XA000.MDB"_s)).constData(), &otro);
             sqlite3_exec(otro, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
         },
         3051},
        {"base missing",
         [&] {
             sqlite3_close(otro);
             QFile::remove(m_carpeta.filePath(u"XA000.MDB"_s));
         },
         3024},
        {"account refused", [&] { m_perfil.Escribe(u"Grupo", u"Clave", u"0000000000000000"); }, 3029},
        {"workgroup file missing", [&] { QFile::remove(grupo); }, 3028},
    };
    for (const Caso& caso : casos) {
        caso.estropea();
        EXPECT_EQ(NumeroAlAbrir(), caso.numero) << caso.porQue;
        EXPECT_EQ(m_perfil.Lee(kSeccionOpciones, u"SystemDB"), grupo) << caso.porQue;
        EXPECT_EQ(m_proceso.baseDatos, nullptr) << caso.porQue;
    }
}

TEST_F(ConfigurationTest, BuildsAnAccountOfEightPrintableCharactersEach) {
    const Cuenta deFabrica = CuentaConfigurada(m_perfil);
    for (const QString& texto : {deFabrica.usuario, deFabrica.clave}) {
        EXPECT_EQ(texto.size(), 8);
        EXPECT_TRUE(std::all_of(texto.begin(), texto.end(), [](QChar c) { return c > u' ' && c <= u'~'; }));
    }
    m_perfil.Escribe(u"Grupo", u"Cuenta", u"1b191f");
    EXPECT_EQ(CuentaConfigurada(m_perfil).usuario, u"ABC"_s);
    EXPECT_EQ(CuentaConfigurada(m_perfil).clave, deFabrica.clave);
}

} // namespace
} // namespace xa518
