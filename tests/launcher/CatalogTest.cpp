#include "data/Catalog.h"
#include "data/RateCatalog.h"
#include "launcher/CatalogInstaller.h"
#include "launcher/CatalogLayout.h"
#include "launcher/CsvTable.h"
#include "support/TemporaryBase.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

class Catalog : public testing::Test {
  protected:
    prueba::BaseTemporal base;
    InstaladorCatalogo::Resumen instalado = InstaladorCatalogo(*base).Instala();
};

} // namespace

// The row that the modules use when this one is missing: any piece out of its column would show.
TEST_F(Catalog, RucRowHasTheLayoutOfTheDefaultRow) {
    EXPECT_EQ(Catalogo(*base).Funcion(u"044"_s, u"6"_s),
              u"REG. UNICO DE CONTRIBUYENTES   RUC           11 000110 01 000001000001100111011111"
              "                                           0 5 0"_s);
}

TEST_F(Catalog, RatesByClassMonthAndDeclaredPeriod) {
    const struct {
        QString periodo, clase, mes, factor;
    } casos[] = {
        {u"200503"_s, u"1"_s, u"200501"_s, u"0.0060"_s},  // the factor of the first months
        {u"200504"_s, u"1"_s, u"200504"_s, u"0.0055"_s},  // and the one from 200504
        {u"200803"_s, u"1"_s, u"200803"_s, u"0.00505"_s}, // a row's own first month
        {u"202609"_s, u"2"_s, u"201102"_s, u"0.0205"_s},  // a row's last month
        {u"202609"_s, u"6"_s, u"200802"_s, u"0"_s},       // before the class began
    };
    for (const auto& caso : casos) {
        CatalogoTasas tasas(*base, caso.periodo);
        EXPECT_EQ(tasas.Busca(caso.clase, caso.mes).factor, caso.factor) << qPrintable(caso.mes);
    }
}

TEST_F(Catalog, EveryCodeThatTheModulesRaiseHasItsText) {
    const Catalogo catalogo(*base);
    const QString codigos =
        u"1 3 9 10 151 201 221 228 239 532 853 854 855 857 858 859 868 869 870 871 872 873 874 875 876 "
        "877 878 879 880 881 882 883 884 885 886 887 888 889 890 891 892 901 982 983 984 985 986 987 "
        "988 989 990 991 992 993 994 995 996"_s;
    for (const QString& codigo : codigos.split(u' '))
        EXPECT_FALSE(catalogo.DescError(codigo).isEmpty()) << codigo.toStdString();
}

TEST_F(Catalog, InstallingAgainRenewsItsRowsAndKeepsTheOthers) {
    EXPECT_GT(instalado.nuevas, 100);
    base->Ejecuta(u"UPDATE PARAM SET Funcion = 'dañada' WHERE Numero = '830'"_s);
    base->Ejecuta(u"UPDATE PARAM SET correl_param = 77 WHERE Numero = '004' AND Argumento = '02'"_s);
    base->Ejecuta(u"UPDATE ERROR SET DescError = '' WHERE CodError = '0151'"_s);
    base->Ejecuta(u"UPDATE CLAVES SET Tipo = '0' WHERE Usuario = 'USUARIO'"_s);
    base->Ejecuta(u"INSERT INTO PARAM VALUES ('998', '0304020', 'de otro módulo', 4)"_s);
    const InstaladorCatalogo::Resumen resumen = InstaladorCatalogo(*base).Instala();
    EXPECT_EQ(resumen.nuevas, 0);
    EXPECT_EQ(resumen.cambiadas, 3);
    const Catalogo catalogo(*base);
    EXPECT_EQ(catalogo.Funcion(u"830"_s, u"01"_s), u"209912"_s);
    EXPECT_FALSE(catalogo.DescError(u"0151"_s).isEmpty());
    EXPECT_EQ(catalogo.TipoUsuario(u"USUARIO"_s), u"0"_s);
    EXPECT_EQ(catalogo.Funcion(u"998"_s, u"0304020"_s), u"de otro módulo"_s);
}

TEST(CatalogLayout, AValueWiderThanItsPlaceIsRefused) {
    const Plantilla plantilla{u"ab"_s, {{u"x"_s, 4, 2}}};
    EXPECT_EQ(plantilla.Compone({{u"x"_s, u"1"_s}}), u"ab 1 "_s);
    EXPECT_THROW((void)plantilla.Compone({{u"x"_s, u"123"_s}}), Error);
}

TEST(CsvTable, ReadsByColumnNameWhateverTheOrder) {
    const auto filas = LeeCsv(u"f"_s, "texto,codigo\n\"a, \"\"b\"\"\",1\r\nñandú , 2\n", {u"codigo"_s, u"texto"_s});
    ASSERT_EQ(filas.size(), 2);
    EXPECT_EQ(filas[0], QStringList({u"1"_s, u"a, \"b\""_s}));
    EXPECT_EQ(filas[1], QStringList({u"2"_s, u"ñandú"_s}));
}

TEST(CsvTable, RefusesAFileThatIsNotAsDescribed) {
    const QList<std::pair<QByteArray, const char*>> casos = {
        {"codigo\n1\n", "a column is missing"},
        {"codigo,texto,otra\n1,2,3\n", "a column too many"},
        {"codigo,texto\n1\n", "a short line"},
        {"codigo,texto\n1,2,3\n", "a long line"},
        {"codigo,texto\n1,\"abierta\n", "an open quote"},
        {"", "nothing at all"},
    };
    for (const auto& [contenido, falta] : casos)
        EXPECT_THROW((void)LeeCsv(u"f"_s, contenido, {u"codigo"_s, u"texto"_s}), Error) << falta;
}
