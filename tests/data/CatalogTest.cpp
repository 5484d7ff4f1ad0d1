#include "DataFixture.h"

#include "data/Catalog.h"

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

class CatalogTest : public BaseDePrueba {
  protected:
    CatalogTest() {
        CreaCatalogo();
        Param(u"830"_s, u"01"_s, u"209912 resto"_s);
        Param(u"856"_s, u"O'x"_s, u"dato"_s);
        Corre({u"INSERT INTO ERROR VALUES ('0151','Ciento cincuenta y uno'), ('E001','Con letra')"_s,
               u"INSERT INTO CLAVES VALUES ('JEFA','0'), ('AUX','1')"_s});
    }
};

TEST_F(CatalogTest, ReadsAPieceWithItsLengthBeforeItsPosition) {
    const Catalogo catalogo(*m_base);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 6, 1), u"209912"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 2, 5), u"12"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 30, 8), u"resto"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 3, 90), u""_s);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"02"_s, 6, 1), u""_s);
    EXPECT_EQ(catalogo.Funcion(u"856"_s, u"O'x"_s), u"dato"_s);
    EXPECT_EQ(catalogo.Funcion(u"856"_s, u"' or '1'='1"_s), u""_s);
}

TEST_F(CatalogTest, PadsErrorCodesAndDefaultsUsers) {
    const Catalogo catalogo(*m_base);
    EXPECT_EQ(catalogo.DescError(u"151"_s), u"Ciento cincuenta y uno"_s);
    EXPECT_EQ(catalogo.DescError(u"0151"_s), u"Ciento cincuenta y uno"_s);
    EXPECT_EQ(catalogo.DescError(u"E001"_s), u"Con letra"_s);
    EXPECT_EQ(catalogo.DescError(u"0152"_s), u""_s);
    EXPECT_EQ(catalogo.TipoUsuario(u"JEFA"_s), u"0"_s);
    EXPECT_EQ(catalogo.TipoUsuario(u"AUX"_s), u"1"_s);
    EXPECT_EQ(catalogo.TipoUsuario(u"nadie"_s), u"1"_s);
    EXPECT_EQ(catalogo.TipoUsuario(QString()), u"1"_s);
}

} // namespace
} // namespace xa518
