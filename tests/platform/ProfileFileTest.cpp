#include "platform/ProfileFile.h"

#include "Printers.h"
#include "values/Error.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class ProfileFileTest : public testing::Test {
  protected:
    void Pon(const QByteArray& bytes) const {
        QFile archivo(m_perfil.Ruta());
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(bytes);
    }
    [[nodiscard]] QByteArray Bytes() const {
        QFile archivo(m_perfil.Ruta());
        EXPECT_TRUE(archivo.open(QIODevice::ReadOnly));
        return archivo.readAll();
    }
    QTemporaryDir m_carpeta;
    ArchivoPerfil m_perfil{m_carpeta.filePath(u"XA000.INI"_s)};
};

TEST_F(ProfileFileTest, ReadsByTheRulesOfTheProfileCalls) {
    Pon("SysUser=afuera\r\n"
        "[Otra]\r\nSysUser=OTRA\r\n"
        "[ OPTIONS ]\r\n"
        "; SysUser=comentado\r\n"
        "  sysuser =  JEFA 1  \r\n"
        "SysUser=segunda\r\n"
        "SysUserX=no\r\n"
        "Doble=\"C:\\Con blanco \"\r\n"
        "Simple='x'\r\nUna=\"x\r\nIgual=a=b\r\nVacia=\r\n"
        "Utf8=A\xC3\xB1o\r\nAnsi=A\xF1o\r\n"
        "[Options]\r\nTarde=no\r\n"
        "[Final]\nSinFin=si");
    const QMap<QString, QString> valores = {{u"SysUser"_s, u"JEFA 1"_s},
                                            {u"SYSUSER"_s, u"JEFA 1"_s},
                                            {u"Doble"_s, u"C:\\Con blanco "_s},
                                            {u"Simple"_s, u"x"_s},
                                            {u"Una"_s, u"\"x"_s},
                                            {u"Igual"_s, u"a=b"_s},
                                            {u"Vacia"_s, u""_s},
                                            {u"Utf8"_s, u"Año"_s},
                                            {u"Ansi"_s, u"Año"_s},
                                            {u"Tarde"_s, u""_s}, // a section that appears twice counts once
                                            {u"SysUse"_s, u""_s},
                                            {u""_s, u""_s}};
    for (auto valor = valores.begin(); valor != valores.end(); ++valor)
        EXPECT_EQ(m_perfil.Lee(u"Options", valor.key()), valor.value()) << valor.key().toStdString();
    EXPECT_EQ(m_perfil.Lee(u"final", u"sinfin"), u"si"_s);
    EXPECT_EQ(m_perfil.Lee(u"Nada", u"SysUser"), u""_s);
    EXPECT_EQ(ArchivoPerfil(m_carpeta.filePath(u"nohay.ini"_s)).Lee(u"Options", u"SysUser"), u""_s);
}

/// The launcher and the older programs of the family keep their own lines in the file.
TEST_F(ProfileFileTest, RewritesOneValueAndNoOtherByte) {
    struct Caso {
        const char* porQue;
        QByteArray antes;
        QByteArray despues;
    };
    const QList<Caso> casos = {
        {"replaced, CRLF kept", "; \xF1\r\n[OPTIONS]\r\nsystemdb = x\r\nOtra= \xE9 \r\n\r\n[Z]\r\n",
         "; \xF1\r\n[OPTIONS]\r\nSystemDB=C:\\N\r\nOtra= \xE9 \r\n\r\n[Z]\r\n"},
        {"added before the blank lines at the section's end", "[Options]\nA=1\n\n[Z]\nSystemDB=z\n",
         "[Options]\nA=1\nSystemDB=C:\\N\n\n[Z]\nSystemDB=z\n"},
        {"added behind a last line without end", "[Options]\nA=1", "[Options]\nA=1\nSystemDB=C:\\N\n"},
        {"section made", "[Z]\r\nA=1\r\n", "[Z]\r\nA=1\r\n[Options]\r\nSystemDB=C:\\N\r\n"},
        {"last line without end replaced", "[Options]\nSystemDB=x", "[Options]\nSystemDB=C:\\N\n"},
        {"empty file", "", "[Options]\nSystemDB=C:\\N\n"},
    };
    for (const Caso& caso : casos) {
        Pon(caso.antes);
        m_perfil.Escribe(u"Options", u"SystemDB", u"C:\\N");
        EXPECT_EQ(Bytes().toStdString(), caso.despues.toStdString()) << caso.porQue;
        m_perfil.Escribe(u"Options", u"SystemDB", u"C:\\N");
        EXPECT_EQ(Bytes().toStdString(), caso.despues.toStdString()) << caso.porQue << ", twice";
    }
}

TEST_F(ProfileFileTest, MakesThePrivateFileAndItsFolderOrSaysThatItCannot) {
    const ArchivoPerfil nuevo(m_carpeta.filePath(u"config/mia/XA000.INI"_s));
    nuevo.Escribe(u"Options", u"SysPath", u"/srv/año/");
    EXPECT_EQ(nuevo.Lee(u"Options", u"SysPath"), u"/srv/año/"_s);
    EXPECT_EQ(QFile::permissions(nuevo.Ruta()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    Pon("a file where a folder would have to be");
    const ArchivoPerfil imposible(m_perfil.Ruta() + u"/XA000.INI"_s);
    EXPECT_THROW(imposible.Escribe(u"Options", u"SysPath", u"x"), Error);
}

TEST(ProfilePath, FollowsTheUsersConfigurationFolder) {
    const QByteArray antes = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/srv/conf");
    EXPECT_EQ(ArchivoPerfil::RutaDe(u"XA000.INI"_s), u"/srv/conf/XA000.INI"_s);
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(ArchivoPerfil::RutaDe(u"XA000.INI"_s), QDir::homePath() + u"/.config/XA000.INI"_s);
    qputenv("XDG_CONFIG_HOME", antes);
}

} // namespace
} // namespace xa518
