#include "launcher/Backups.h"

#include "data/Record.h"
#include "data/SchemaVersion.h"
#include "data/Transaction.h"
#include "launcher/Schema.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

class Backups : public testing::Test {
  protected:
    Backups() {
        base->Ejecuta(u"PRAGMA user_version=%1"_s.arg(kVersionEsquema));
        Graba(u"202609"_s);
    }

    void Graba(const QString& periodo) { base.Agrega(u"CAB"_s, {{u"periodo"_s, periodo}}); }
    /// Read through a connection of its own: the fixture's stays with the file that a copy took the place of.
    QString Periodos() const {
        const auto vigente = Base::Abre(base.Ruta());
        Registros fila = vigente->Lee(u"SELECT group_concat(periodo) FROM CAB"_s);
        return fila.Siguiente() ? fila.Texto(0) : QString();
    }
    Respaldos Copias() const { return {base.Ruta(), base.Carpeta() + u"/RESPALDOS"_s, reloj}; }
    QString Archivo(const QString& nombre, const QByteArray& bytes) const {
        prueba::EscribeEn(base.Carpeta() + u'/' + nombre, bytes);
        return base.Carpeta() + u'/' + nombre;
    }

    prueba::BaseTemporal base;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
};

} // namespace

TEST_F(Backups, KeepsTheLastTwentyEvenWhenTheClockIsSetBack) {
    const QString primera = Copias().Haz();
    for (int i = 0; i < 21; ++i)
        (void)Copias().Haz();
    EXPECT_EQ(Copias().Lista().size(), 20);
    EXPECT_FALSE(QFile::exists(primera));
    const RelojFijo ayer(QDateTime({2026, 11, 20}, {10, 0}));
    const QString reciente = Respaldos(base.Ruta(), Copias().Carpeta(), ayer).Haz();
    EXPECT_EQ(Copias().Lista().size(), 20);
    EXPECT_EQ(Copias().Lista().last().ruta, reciente);
    EXPECT_EQ(QFile::permissions(reciente) & prueba::kDeOtros, QFile::Permissions());
}

TEST_F(Backups, RestoresTheCopyToTheByteAndKeepsWhatWasThere) {
    const QString copia = Copias().Haz();
    Graba(u"202610"_s);
    ASSERT_TRUE(Copias().Restaura(copia));
    EXPECT_EQ(prueba::BytesDe(base.Ruta()), prueba::BytesDe(copia));
    EXPECT_EQ(Periodos(), u"202609"_s);
    // Whoever still has the old file open must not write into the void.
    EXPECT_THROW(Graba(u"202611"_s), ErrorBase);
    ASSERT_EQ(Copias().Lista().size(), 2);
    ASSERT_TRUE(Copias().Restaura(Copias().Lista().first().ruta));
    EXPECT_EQ(Periodos(), u"202609,202610"_s);
}

TEST_F(Backups, RefusesWhatIsNoSoundBaseOfThesePrograms) {
    const QString copia = Copias().Haz();
    const QByteArray buena = prueba::BytesDe(copia);
    QByteArray rayada = buena;
    std::fill(rayada.begin() + 4096, rayada.begin() + 12288, 'x');
    const auto ajena = Base::Crea(base.Carpeta() + u"/ajena"_s);
    ajena->Ejecuta(u"CREATE TABLE T (A)"_s);
    const auto futura = prueba::CreaBase(base.Carpeta() + u"/futura"_s);
    futura->Ejecuta(u"PRAGMA user_version=99"_s);
    const QStringList malas = {base.Carpeta() + u"/ausente"_s,
                               base.Carpeta(),
                               Archivo(u"texto"_s, "no soy una base"),
                               Archivo(u"cortada"_s, buena.first(buena.size() / 2)),
                               Archivo(u"rayada"_s, rayada),
                               ajena->Ruta(),
                               futura->Ruta()};
    const QByteArray antes = prueba::BytesDe(base.Ruta());
    for (const QString& mala : malas) {
        const Veredicto veredicto = Copias().Restaura(mala);
        ASSERT_FALSE(veredicto) << qPrintable(mala);
        EXPECT_TRUE(veredicto.mensaje->texto.contains(mala)) << qPrintable(veredicto.mensaje->texto);
    }
    EXPECT_EQ(prueba::BytesDe(base.Ruta()), antes);
    EXPECT_EQ(Copias().Lista().size(), 1);
}

TEST_F(Backups, RefusesWhileAnotherProgramUsesTheBase) {
    const QString copia = Copias().Haz();
    Graba(u"202610"_s);
    {
        const Transaccion ocupada = base->Comienza();
        EXPECT_FALSE(Copias().Restaura(copia));
    }
    QProcess otro; // it only has the file open, as a module between two statements
    otro.start(u"sh"_s, {u"-c"_s, u"exec 3<'%1'; echo listo; read fin"_s.arg(base.Ruta())});
    ASSERT_TRUE(otro.waitForReadyRead());
    const Veredicto veredicto = Copias().Restaura(copia);
    ASSERT_FALSE(veredicto);
    EXPECT_TRUE(veredicto.mensaje->texto.contains(u"sh (%1)"_s.arg(otro.processId())))
        << qPrintable(veredicto.mensaje->texto);
    otro.closeWriteChannel();
    ASSERT_TRUE(otro.waitForFinished());
    EXPECT_EQ(Periodos(), u"202609,202610"_s);
    EXPECT_TRUE(Copias().Restaura(copia));
}

TEST_F(Backups, TakesThePlaceOfABrokenOrMissingBase) {
    const QString copia = Copias().Haz();
    Archivo(u"XA.DB"_s, "restos de una base");
    Archivo(u"XA.DB-journal"_s, "diario de la base rota");
    ASSERT_TRUE(Copias().Restaura(copia));
    EXPECT_EQ(Periodos(), u"202609"_s);
    EXPECT_FALSE(QFile::exists(base.Ruta() + u"-journal"_s));
    const QDir carpeta(Copias().Carpeta());
    const QStringList restos = carpeta.entryList({u"*.DANADA"_s}, QDir::Files);
    ASSERT_EQ(restos.size(), 1);
    EXPECT_EQ(prueba::BytesDe(carpeta.filePath(restos.first())), "restos de una base");

    QFile::remove(base.Ruta());
    EXPECT_THROW((void)Copias().Haz(), ErrorBase);
    ASSERT_TRUE(Copias().Restaura(copia));
    EXPECT_EQ(Periodos(), u"202609"_s);
}

TEST_F(Backups, ACopyOfAnEarlierVersionGetsTheTablesOfThisOne) {
    const QString pasos = base.Carpeta() + u"/pasos"_s;
    ASSERT_TRUE(QDir().mkpath(pasos) &&
                QFile::copy(u":/esquema/0001_shared_tables.sql"_s, pasos + u"/0001_shared_tables.sql"_s));
    const QString anterior = base.Carpeta() + u"/anterior"_s;
    ASSERT_EQ(Esquema(pasos).Aplica(*Base::Crea(anterior)).version, 1);
    ASSERT_TRUE(Copias().Restaura(anterior));
    EXPECT_NO_THROW(ExigeVersion(*Base::Abre(base.Ruta())));
    EXPECT_EQ(VersionDe(*Base::Abre(anterior)), 1);
}
