#include "launcher/Schema.h"
#include "support/TemporaryBase.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

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
