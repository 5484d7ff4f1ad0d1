#include "platform/ProfileFile.h"

#include "support/Test.h"
#include "values/Error.h"

#include <QScopeGuard>

namespace {

class ProfileFileTest : public testing::Test {
  protected:
    void Pon(const QByteArray& bytes) const { EscribeEn(m_perfil.Ruta(), bytes); }
    [[nodiscard]] QByteArray Bytes() const { return BytesDe(m_perfil.Ruta()); }
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
        "Igual=a=b\r\nVacia=\r\n"
        "Ansi=A\xF1o\r\n"
        "[Options]\r\nTarde=no\r\n"
        "[Final]\nSinFin=si");
    const QMap<QString, QString> valores = {
        {u"SysUser"_s, u"JEFA 1"_s}, {u"SYSUSER"_s, u"JEFA 1"_s}, {u"Doble"_s, u"C:\\Con blanco "_s},
        {u"Igual"_s, u"a=b"_s},      {u"Vacia"_s, u""_s},         {u"Ansi"_s, u"Año"_s},
        {u"Tarde"_s, u""_s}, // a section that appears twice counts once
        {u"SysUse"_s, u""_s}};
    for (auto valor = valores.begin(); valor != valores.end(); ++valor)
        EXPECT_EQ(m_perfil.Lee(u"Options", valor.key()), valor.value()) << valor.key().toStdString();
    EXPECT_EQ(m_perfil.Lee(u"final", u"sinfin"), u"si"_s);
}

TEST_F(ProfileFileTest, ReadsUtf8WhereItIsUtf8) {
    Pon("[Options]\r\nUtf8=A\xC3\xB1o\r\nAnsi=A\xF1o\r\n");
    EXPECT_EQ(m_perfil.Lee(u"Options", u"Utf8"), u"Año"_s);
    EXPECT_EQ(m_perfil.Lee(u"Options", u"Ansi"), u"Año"_s);
}

/// The launcher and the older programs of the family keep their own lines in the file.
TEST_F(ProfileFileTest, RewritesOneValueAndNoOtherByte) {
    const struct {
        const char* porQue;
        QByteArray antes, despues;
    } casos[] = {
        {"replaced, CRLF kept", "; \xF1\r\n[OPTIONS]\r\nsystemdb = x\r\nOtra= \xE9 \r\n\r\n[Z]\r\n",
         "; \xF1\r\n[OPTIONS]\r\nSystemDB=C:\\N\r\nOtra= \xE9 \r\n\r\n[Z]\r\n"},
        {"added before the blank lines at the section's end", "[Options]\nA=1\n\n[Z]\nSystemDB=z\n",
         "[Options]\nA=1\nSystemDB=C:\\N\n\n[Z]\nSystemDB=z\n"},
        {"added behind a last line without end", "[Options]\nA=1", "[Options]\nA=1\nSystemDB=C:\\N\n"},
        {"section made", "[Z]\r\nA=1\r\n", "[Z]\r\nA=1\r\n[Options]\r\nSystemDB=C:\\N\r\n"},
        {"last line without end replaced", "[Options]\nSystemDB=x", "[Options]\nSystemDB=C:\\N\n"},
    };
    for (const auto& [porQue, antes, despues] : casos) {
        Pon(antes);
        for (int vez = 1; vez <= 2; ++vez) {
            m_perfil.Escribe(u"Options", u"SystemDB", u"C:\\N");
            EXPECT_EQ(Bytes().toStdString(), despues.toStdString()) << porQue << ", " << vez;
        }
    }
}

TEST_F(ProfileFileTest, MakesThePrivateFileAndItsFolderOrSaysThatItCannot) {
    const ArchivoPerfil nuevo(m_carpeta.filePath(u"config/mia/XA000.INI"_s));
    nuevo.Escribe(u"Options", u"SysPath", u"/srv/año/");
    EXPECT_EQ(nuevo.Lee(u"Options", u"SysPath"), u"/srv/año/"_s);
    EXPECT_EQ(QFile::permissions(nuevo.Ruta()) & kDeOtros, QFile::Permissions());
    Pon("a file where a folder would have to be");
    const ArchivoPerfil imposible(m_perfil.Ruta() + u"/XA000.INI"_s);
    EXPECT_THROW(imposible.Escribe(u"Options", u"SysPath", u"x"), Error);
}

#ifdef Q_OS_WIN

/// A folder of that name is what nobody can write to, whatever his rights.
TEST(ProfileOfWindows, AnAccountThatMayNotWriteThereGetsAFileOfItsOwn) {
    const QString nombre = u"XA518-PRUEBA.INI"_s;
    const QString carpeta = qEnvironmentVariable("SystemRoot") + u'/' + nombre;
    const QString propio = qEnvironmentVariable("LOCALAPPDATA") + u"/VirtualStore"_s + carpeta.sliced(2);
    const auto limpia = qScopeGuard([&] {
        QDir().rmdir(carpeta);
        QFile::remove(propio);
    });
    QDir().mkpath(carpeta);
    const ArchivoPerfil perfil(ArchivoPerfil::RutaDe(nombre));
    EXPECT_FALSE(perfil.Existe());
    perfil.Escribe(u"Options", u"SysPath", u"C:\\Peña & Añaños\\"_s);
    perfil.Escribe(u"Options", u"SysUser", u"JEFA"_s);
    EXPECT_TRUE(QFile::exists(propio));
    EXPECT_TRUE(perfil.Existe());
    EXPECT_EQ(perfil.Lee(u"Options", u"SysPath"), u"C:\\Peña & Añaños\\"_s);
    EXPECT_EQ(perfil.Lee(u"Options", u"SysUser"), u"JEFA"_s);
}

#endif

} // namespace
