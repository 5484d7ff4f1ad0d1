#include "launcher/Schema.h"
#include "data/Base.h"
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
    bool HayTabla(const QString& tabla) {
        return base->Lee(u"SELECT 1 FROM sqlite_master WHERE name = ?"_s, {tabla}).Siguiente();
    }

    QTemporaryDir m_carpeta;
    QTemporaryDir m_pasos;
    std::unique_ptr<Base> base = Base::Crea(m_carpeta.filePath(u"vacia.db"_s));
};

} // namespace

TEST_F(SchemaTest, MissingStepsAreMadeOverTheDataThatIsThere) {
    Escribe(u"0001_uno.sql"_s, "-- it's one\nCREATE TABLE UNO (a TEXT);\n");
    EXPECT_EQ(AplicaPasos().resultado, ResultadoEsquema::Creado);
    base->Ejecuta(u"INSERT INTO UNO VALUES ('queda')"_s);
    Escribe(u"0002_dos.sql"_s, "CREATE TABLE DOS (b TEXT);\nALTER TABLE UNO ADD COLUMN c TEXT;\n");
    const EstadoEsquema estado = AplicaPasos();
    EXPECT_EQ(estado.resultado, ResultadoEsquema::Actualizado);
    EXPECT_EQ(estado.version, 2);
    EXPECT_TRUE(base->Lee(u"SELECT 1 FROM UNO WHERE a = 'queda' AND c IS NULL"_s).Siguiente());
}

TEST_F(SchemaTest, FailingStepIsUndoneWholeAndItsVersionNotWritten) {
    Escribe(u"0001_uno.sql"_s, "CREATE TABLE UNO (a TEXT);\n");
    Escribe(u"0002_mal.sql"_s, "CREATE TABLE DOS (b TEXT);\nCREATE TABLE UNO (a TEXT);\n");
    const EstadoEsquema estado = AplicaPasos();
    EXPECT_EQ(estado.resultado, ResultadoEsquema::Fallido);
    EXPECT_EQ(estado.version, 1);
    EXPECT_TRUE(estado.motivo.contains(u"UNO"_s)) << estado.motivo.toStdString();
    EXPECT_TRUE(HayTabla(u"UNO"_s));
    EXPECT_FALSE(HayTabla(u"DOS"_s));
}
