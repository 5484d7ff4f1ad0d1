#include "DataFixture.h"

#include "data/Workgroup.h"

#include <QFile>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

TEST(Workgroup, AdmitsItsAccountAndNoOther) {
    const QTemporaryDir carpeta;
    const GrupoTrabajo grupo(carpeta.filePath(u"XA000.MDW"_s));
    const auto numero = [&grupo](const QString& usuario, const QString& clave) {
        return NumeroDe([&] { grupo.Verifica({usuario, clave}); });
    };
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 3028);
    grupo.Admite({u"usuario1"_s, u"clave001"_s});
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 0);
    EXPECT_EQ(numero(u"usuario1"_s, u"clave002"_s), 3029);
    EXPECT_EQ(numero(u"usuario2"_s, u"clave001"_s), 3029);
    grupo.Admite({u"usuario2"_s, u"clave003"_s});
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 0);
    EXPECT_EQ(numero(u""_s, u""_s), 3029);

    QFile archivo(carpeta.filePath(u"XA000.MDW"_s));
    EXPECT_EQ(archivo.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    EXPECT_FALSE(archivo.readAll().contains("clave001"));
    archivo.close();
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.write("{\"usuario1\": \"clave001\"} \x01 rubbish");
    archivo.close();
    EXPECT_EQ(numero(u"usuario1"_s, u"clave001"_s), 3029);
}

TEST(Workgroup, BuildsATextFromItsCodes) {
    // Each byte is masked with 5a, 5b, 5c...
    EXPECT_EQ(TextoDeCodigos(u"1b191f"_s), u"ABC"_s);
    EXPECT_EQ(TextoDeCodigos(u""_s), u""_s);
}

} // namespace
} // namespace xa518
