#include "data/Catalog.h"
#include "data/DocumentTypes.h"
#include "data/RateCatalog.h"
#include "launcher/CatalogInstaller.h"
#include "launcher/CatalogLayout.h"
#include "support/TemporaryBase.h"

#include <gmock/gmock.h>

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

TEST_F(Catalog, DocumentTypesCarryLengthAndFlags) {
    QStringList ofrecidos;
    for (const TipoDocumento& tipo : DocumentosOfrecidos(*base, 82))
        ofrecidos.append(tipo.codigo);
    EXPECT_EQ(ofrecidos, QStringList({u"06"_s, u"01"_s, u"04"_s, u"07"_s, u"03"_s, u"11"_s}));
    EXPECT_EQ(
        base.Filas(
            u"SELECT Argumento FROM PARAM WHERE Numero='044' AND mid(Funcion,75,1)='1' ORDER BY val(Argumento)"_s),
        QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"6"_s, u"7"_s, u"11"_s}));
    struct Caso {
        QString tipo;
        int largo;
        QString dato;
        QString longitud;
    };
    for (const Caso& caso :
         {Caso{u"01"_s, 8, u"5"_s, u"1"_s}, Caso{u"6"_s, 11, u"5"_s, u"0"_s}, Caso{u"7"_s, 12, u"0"_s, u"0"_s}}) {
        const auto tipo = DocumentoDeTipo(*base, caso.tipo);
        ASSERT_TRUE(tipo);
        EXPECT_EQ(tipo->Largo(), caso.largo);
        EXPECT_EQ(tipo->tipoDato, caso.dato);
        EXPECT_EQ(tipo->tipoLongitud, caso.longitud);
    }
}

TEST_F(Catalog, RatesByClassMonthAndDeclaredPeriod) {
    EXPECT_EQ(Catalogo(*base).Funcion(u"953"_s, u"2010909200501"_s), u" 0.0220             0.0210    2.10  "_s);
    struct Caso {
        QString periodo;
        QString clase;
        QString mes;
        QString factor;
        QString tasa;
    };
    const QList<Caso> casos = {
        {u"200503"_s, u"1"_s, u"200501"_s, u"0.0060"_s, u"0.55"_s},  // the factor of the first months
        {u"200504"_s, u"1"_s, u"200504"_s, u"0.0055"_s, u"0.55"_s},  // and the one from 200504
        {u"200803"_s, u"1"_s, u"200803"_s, u"0.00505"_s, u"0.51"_s}, // a row's own first month
        {u"202609"_s, u"1"_s, u"202609"_s, u"0.0050"_s, u"0.50"_s},
        {u"202609"_s, u"2"_s, u"201102"_s, u"0.0205"_s, u"2.05"_s}, // a row's last month
        {u"202609"_s, u"3"_s, u"202609"_s, u"0.0040"_s, u"0.40"_s},
        {u"202609"_s, u"4"_s, u"202609"_s, u"0.0150"_s, u"1.50"_s},
        {u"202609"_s, u"5"_s, u"202609"_s, u"0.0250"_s, u"2.50"_s},
        {u"202609"_s, u"6"_s, u"202609"_s, u"0.0075"_s, u"0.75"_s},
        {u"202609"_s, u"6"_s, u"200802"_s, u"0"_s, u"0"_s}, // before the class began
    };
    for (const Caso& caso : casos) {
        CatalogoTasas tasas(*base, caso.periodo);
        const FilaTasa& fila = tasas.Busca(caso.clase, caso.mes);
        EXPECT_EQ(fila.factor, caso.factor) << caso.mes.toStdString();
        EXPECT_EQ(fila.tasa, caso.tasa) << caso.mes.toStdString();
    }
}

TEST_F(Catalog, OtherCataloguesReadBackByTheModulesQueries) {
    const Catalogo catalogo(*base);
    EXPECT_EQ(catalogo.FuncionParam(u"830"_s, u"01"_s, 6, 1), u"209912"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"856"_s, u"0518"_s, 3, 20), u"790"_s);
    EXPECT_EQ(catalogo.FuncionParam(u"856"_s, u"0518"_s, 10, 5).trimmed(), u"202601"_s);
    EXPECT_EQ(base.Filas(u"SELECT trim(Funcion) FROM PARAM WHERE numero='981' AND left(argumento,4)='0518'"_s),
              QStringList({u"044/233/953/998/"_s}));
    EXPECT_EQ(base.Filas(u"SELECT val(mid(FUNCION,2,6)) FROM PARAM WHERE numero='998' AND MID(ARGUMENTO,8,6)<='201102'"
                         " AND MID(ARGUMENTO,1,6)='010101' order by MID(ARGUMENTO,8,6)"_s),
              QStringList({u"19"_s}));
    EXPECT_EQ(
        base.Filas(u"SELECT argumento FROM PARAM WHERE numero='233' AND MID(FUNCION,64,1)='1' ORDER BY argumento"_s),
        QStringList({u"01"_s, u"03"_s, u"07"_s, u"08"_s, u"12"_s, u"99"_s}));
    const QStringList bancos =
        base.Filas(u"SELECT mid(FUNCION,1,36) FROM PARAM WHERE NUMERO='004' AND TRIM(ARGUMENTO)<> '00' order by 1"_s);
    EXPECT_GT(bancos.size(), 5);
    EXPECT_THAT(bancos, testing::Each(testing::ResultOf([](const QString& b) { return b.size(); }, 36)));
    EXPECT_EQ(catalogo.TipoUsuario(u"supervisor"_s), u"0"_s);
    EXPECT_EQ(catalogo.TipoUsuario(u"USUARIO"_s), u"1"_s);
}

TEST_F(Catalog, EveryCodeThatTheModulesRaiseHasItsText) {
    const Catalogo catalogo(*base);
    const QString codigos =
        u"1 3 9 10 151 201 221 228 239 532 853 854 855 857 858 859 868 869 870 871 872 873 874 875 876 "
        "877 878 879 880 881 882 883 884 885 886 887 888 889 890 891 892 901 982 983 984 985 986 987 "
        "988 989 990 991 992 993 994 995 996"_s;
    for (const QString& codigo : codigos.split(u' '))
        EXPECT_FALSE(catalogo.DescError(codigo).isEmpty()) << codigo.toStdString();
    EXPECT_EQ(catalogo.DescError(u"0992"_s), u"El RUC no es de una Empresa, no debe ingresar la razón social"_s);
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
