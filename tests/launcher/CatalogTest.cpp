#include "data/Catalog.h"
#include "launcher/CatalogInstaller.h"
#include "launcher/Schema.h"
#include "support/TemporaryBase.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

class Catalog : public testing::Test {
  protected:
    prueba::BaseTemporal base;
    InstaladorCatalogo::Resumen instalado = InstaladorCatalogo(*base).Instala();
};

/// A base without tables, and a folder of steps that a test writes itself.
class SchemaTest : public testing::Test {
  protected:
    void Escribe(const QString& nombre, const QByteArray& sql) const {
        prueba::EscribeEn(m_pasos.filePath(nombre), sql);
    }
    EstadoEsquema AplicaPasos() { return Esquema(m_pasos.path()).Aplica(*base); }

    QTemporaryDir m_carpeta;
    QTemporaryDir m_pasos;
    std::unique_ptr<Base> base = Base::Crea(m_carpeta.filePath(u"vacia.db"_s));
};

} // namespace

// The row that the modules use when this one is missing: any piece out of its column would show.
TEST_F(Catalog, RucRowHasTheLayoutOfTheDefaultRow) {
    EXPECT_EQ(Catalogo(*base).Funcion(u"044"_s, u"6"_s),
              u"REG. UNICO DE CONTRIBUYENTES   RUC           11 000110 01 000001000001100111011111"
              "                                           0 5 0"_s);
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

TEST_F(SchemaTest, MissingStepsAreMadeOverTheDataThatIsThereAndAFailingOneIsUndoneWhole) {
    Escribe(u"0001_uno.sql"_s, "-- it's one\nCREATE TABLE UNO (a TEXT);\n");
    EXPECT_EQ(AplicaPasos().resultado, ResultadoEsquema::Creado);
    base->Ejecuta(u"INSERT INTO UNO VALUES ('queda')"_s);
    Escribe(u"0002_dos.sql"_s, "CREATE TABLE DOS (b TEXT);\nALTER TABLE UNO ADD COLUMN c TEXT;\n");
    EXPECT_EQ(AplicaPasos().resultado, ResultadoEsquema::Actualizado);
    Escribe(u"0003_mal.sql"_s, "CREATE TABLE TRES (b TEXT);\nCREATE TABLE UNO (a TEXT);\n");
    const EstadoEsquema estado = AplicaPasos();
    EXPECT_EQ(estado.resultado, ResultadoEsquema::Fallido);
    EXPECT_EQ(estado.version, 2);
    EXPECT_TRUE(estado.motivo.contains(u"UNO"_s)) << qPrintable(estado.motivo);
    EXPECT_TRUE(base->Lee(u"SELECT 1 FROM UNO WHERE a = 'queda' AND c IS NULL"_s).Siguiente());
    EXPECT_FALSE(base->Lee(u"SELECT 1 FROM sqlite_master WHERE name = 'TRES'"_s).Siguiente());
}
