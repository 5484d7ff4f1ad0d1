#include "data/Record.h"
#include "data/RecordChecksum.h"
#include "data/SchemaVersion.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/SchemaSteps.h"
#include "form518/Form0518.h"
#include "launcher/Backups.h"
#include "launcher/Schema.h"
#include "launcher/Sending.h"
#include "platform/Clock.h"
#include "reports/SpoolRegistry.h"
#include "support/PrivateFile.h"
#include "support/TemporaryBase.h"
#include "values/Progress.h"

#include <QProcess>

#include <mutex>
#include <thread>
#include <vector>

namespace {

/// A base without tables, and a folder of steps that a test writes itself.
class SchemaTest : public testing::Test {
  protected:
    void Escribe(const QString& nombre, const QByteArray& sql) const { EscribeEn(m_pasos.filePath(nombre), sql); }
    EstadoEsquema AplicaPasos() { return Esquema({m_pasos.path()}).Aplica(*base); }

    QTemporaryDir m_carpeta;
    QTemporaryDir m_pasos;
    std::unique_ptr<Base> base = Base::Crea(m_carpeta.filePath(u"vacia.db"_s));
};

class Backups : public testing::Test {
  protected:
    Backups() {
        base->PonVersionDelEsquema(VersionDelEsquema(formularios));
        Graba(u"202609"_s);
    }

    void Graba(const QString& periodo) { base.Agrega(u"CAB"_s, {{u"periodo"_s, periodo}}); }
    /// Read through a connection of its own: the fixture's stays with the file that a copy took the place of.
    QString Periodos() const {
        const auto vigente = Base::Abre(base.Ruta());
        Registros fila = vigente->Lee(u"SELECT group_concat(periodo) FROM CAB"_s);
        return fila.Siguiente() ? fila.Texto(0) : QString();
    }
    Respaldos Copias() const { return {base.Ruta(), base.Carpeta() + u"/RESPALDOS"_s, reloj, formularios}; }
    QString Archivo(const QString& nombre, const QByteArray& bytes) const {
        EscribeEn(base.Carpeta() + u'/' + nombre, bytes);
        return base.Carpeta() + u'/' + nombre;
    }

    const Formularios formularios{Formulario0518()};
    BaseTemporal base;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    SinAvance sinAvance;
};

class Sending : public testing::Test {
  protected:
    /// One row in every table; its texts are the columns' own names, so that a swap would show.
    void Graba(const QString& periodo) {
        for (const QString& tabla : kTablas) {
            const Tabla& forma = base->Describe(tabla);
            Registro fila(forma);
            for (int i = 0; i < forma.columnas.size(); ++i)
                fila.Pon(i, forma.columnas[i].entera ? QVariant(6) : QVariant(forma.columnas[i].nombre));
            fila.Pon(u"Doc_id_d", kRucMuestra).Pon(u"periodo", periodo).Pon(u"Formulario", kNumFormulario);
            if (tabla == u"CAB")
                fila.Pon(u"estado", 0).Pon(u"bcolibrad", QVariant());
            if (tabla == u"F518PDETCP")
                fila.Pon(u"mto_detcp", u"7.50"_s);
            AgregaConChecksum(*base, fila, formularios.constFirst().NumericasDe(tabla));
        }
    }

    ResultadoEnvio Envia(const QString& periodo) {
        const ClaveDeclaracion clave{
            .ruc = Ruc(kRucMuestra), .periodo = *Periodo::DeTabla(periodo), .formulario = kNumFormulario};
        return Envio(*base, formularios).Envia(clave, OtroOriginal::Rechazado, FirmaDe(u"ANA"_s, reloj));
    }

    QString Valor(const QString& sql) const { return base.Filas(sql).value(0); }

    /// What a row's checksum should be by the row as it now stands in the base.
    QString ChecksumDe(const QString& tabla, const QString& correl) {
        Registros leida = base->Lee(u"SELECT * FROM "_s + tabla + u" WHERE correl = ?"_s, {correl});
        EXPECT_TRUE(leida.Siguiente());
        Registro fila(base->Describe(tabla));
        for (int i = 0; i < fila.Valores().size(); ++i)
            fila.Pon(i, leida.Valor(i));
        return ChecksumRegistro(fila, formularios.constFirst().NumericasDe(tabla));
    }

    const Formularios formularios{Formulario0518()};
    BaseTemporal base;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
};

} // namespace

TEST_F(SchemaTest, MissingStepsAreMadeOverTheDataThatIsThereAndAFailingOneIsUndoneWhole) {
    Escribe(u"0001_uno.sql"_s, "-- it's one\nCREATE TABLE UNO (a TEXT);\n");
    EXPECT_EQ(AplicaPasos().resultado, ResultadoEsquema::Creado);
    base->Ejecuta(u"INSERT INTO UNO VALUES ('queda')"_s);
    Escribe(u"0002_dos.sql"_s, "CREATE TABLE DOS (b TEXT);\r\nALTER TABLE UNO ADD COLUMN c TEXT\r\n");
    EXPECT_EQ(AplicaPasos().resultado, ResultadoEsquema::Actualizado);
    Escribe(u"0003_mal.sql"_s, "CREATE TABLE TRES (b TEXT);\nCREATE TABLE UNO (a TEXT);\n");
    const EstadoEsquema estado = AplicaPasos();
    EXPECT_EQ(estado.resultado, ResultadoEsquema::Fallido);
    EXPECT_EQ(estado.version, 2);
    EXPECT_EQ(estado.motivo, u"La base de datos no pudo hacer lo que se le pidió."_s);
    EXPECT_TRUE(base->Lee(u"SELECT 1 FROM UNO WHERE a = 'queda' AND c IS NULL"_s).Siguiente());
    EXPECT_FALSE(base->Lee(u"SELECT 1 FROM sqlite_master WHERE name = 'TRES'"_s).Siguiente());
    const QStringList repetidos{m_pasos.path(), m_pasos.path()};
    EXPECT_THROW((void)Esquema(repetidos).Aplica(*base), Error) << "the second step of a number would never be made";
}

TEST_F(Backups, KeepsTheLastTwentyEvenWhenTheClockIsSetBack) {
    const QString primera = Copias().Haz(sinAvance);
    for (int i = 0; i < 21; ++i)
        (void)Copias().Haz(sinAvance);
    EXPECT_EQ(Copias().Lista().size(), 20);
    EXPECT_FALSE(QFile::exists(primera));
    const RelojFijo ayer(QDateTime({2026, 11, 20}, {10, 0}));
    const QString reciente = Respaldos(base.Ruta(), Copias().Carpeta(), ayer, formularios).Haz(sinAvance);
    EXPECT_EQ(Copias().Lista().size(), 20);
    EXPECT_EQ(Copias().Lista().last().ruta, reciente);
    EXPECT_TRUE(EsPrivado(reciente));
}

TEST_F(Backups, RestoresTheCopyAndKeepsWhatWasThere) {
    const QString antes = Retrato(*base);
    const QString copia = Copias().Haz(sinAvance);
    Graba(u"202610"_s);
    Bitacora(*base).Anota(FirmaDe(u"ANA"_s, reloj), {.suceso = Suceso::Grabacion, .despues = u"401=10"_s});
#ifdef Q_OS_WIN
    const Veredicto veredicto = Copias().Restaura(copia, FirmaDe(u"LUIS"_s, reloj), sinAvance);
    ASSERT_FALSE(veredicto) << "the system lets nobody replace what is open";
    EXPECT_TRUE(veredicto.Motivo().texto.contains(u"en uso por otro programa"_s));
    EXPECT_EQ(Periodos(), u"202609,202610"_s);
    base.Cierra();
#endif
    ASSERT_TRUE(Copias().Restaura(copia, FirmaDe(u"LUIS"_s, reloj), sinAvance));
    EXPECT_EQ(Retrato(*Base::Abre(base.Ruta())), antes);
    EXPECT_EQ(Periodos(), u"202609"_s);
    QStringList sucesos;
    for (const Asiento& asiento : Bitacora(*Base::Abre(base.Ruta())).Lista())
        sucesos.append(asiento.usuario + u' ' + asiento.suceso + u' ' + asiento.Diferencias());
    EXPECT_EQ(sucesos,
              (QStringList{u"LUIS RESTAURAR copia:  → "_s + QFileInfo(copia).fileName(), u"ANA GRABAR 401:  → 10"_s}))
        << "who changed what doesn't go back";
#ifndef Q_OS_WIN // whoever still has the old file open must not write into the void
    EXPECT_THROW(Graba(u"202611"_s), ErrorBase);
#endif
    ASSERT_EQ(Copias().Lista().size(), 2);
    ASSERT_TRUE(Copias().Restaura(Copias().Lista().first().ruta, FirmaDe(u"ANA"_s, reloj), sinAvance));
    EXPECT_EQ(Periodos(), u"202609,202610"_s);
}

TEST_F(Backups, RefusesWhatIsNoSoundBaseOfThesePrograms) {
    const QString copia = Copias().Haz(sinAvance);
    const QByteArray buena = BytesDe(copia);
    QByteArray rayada = buena;
    std::fill(rayada.begin() + 4096, rayada.begin() + 12288, 'x');
    const auto ajena = Base::Crea(base.Carpeta() + u"/ajena"_s);
    ajena->Ejecuta(u"CREATE TABLE T (A)"_s);
    const auto futura = CreaBase(base.Carpeta() + u"/futura"_s);
    futura->PonVersionDelEsquema(99);
    const QStringList malas = {base.Carpeta() + u"/ausente"_s,
                               base.Carpeta(),
                               Archivo(u"texto"_s, "no soy una base"),
                               Archivo(u"cortada"_s, buena.first(buena.size() / 2)),
                               Archivo(u"rayada"_s, rayada),
                               ajena->Ruta(),
                               futura->Ruta()};
    const QByteArray antes = BytesDe(base.Ruta());
    for (const QString& mala : malas) {
        const Veredicto veredicto = Copias().Restaura(mala, FirmaDe(u"ANA"_s, reloj), sinAvance);
        ASSERT_FALSE(veredicto) << qPrintable(mala);
        EXPECT_TRUE(veredicto.Motivo().texto.contains(mala)) << qPrintable(veredicto.Motivo().texto);
    }
    EXPECT_EQ(BytesDe(base.Ruta()), antes);
    EXPECT_EQ(Copias().Lista().size(), 1);
}

TEST_F(Backups, RefusesWhileAnotherProgramUsesTheBase) {
    const QString copia = Copias().Haz(sinAvance);
    Graba(u"202610"_s);
    {
        const Transaccion ocupada = base->Comienza();
        EXPECT_FALSE(Copias().Restaura(copia, FirmaDe(u"ANA"_s, reloj), sinAvance));
    }
    QProcess otro; // it only has the file open, as a module between two statements
    otro.start(u"sh"_s, {u"-c"_s, u"exec 3<'%1'; echo listo; read fin"_s.arg(base.Ruta())});
    ASSERT_TRUE(otro.waitForReadyRead());
    const Veredicto veredicto = Copias().Restaura(copia, FirmaDe(u"ANA"_s, reloj), sinAvance);
    ASSERT_FALSE(veredicto);
    EXPECT_TRUE(veredicto.Motivo().texto.contains(u"sh (%1)"_s.arg(otro.processId())));
    otro.closeWriteChannel();
    ASSERT_TRUE(otro.waitForFinished());
    EXPECT_EQ(Periodos(), u"202609,202610"_s);
    EXPECT_TRUE(Copias().Restaura(copia, FirmaDe(u"ANA"_s, reloj), sinAvance));
}

TEST_F(Backups, TakesThePlaceOfABrokenOrMissingBase) {
    const QString copia = Copias().Haz(sinAvance);
    base.Cierra();
    Archivo(u"XA.DB"_s, "restos de una base");
    Archivo(u"XA.DB-journal"_s, "diario de la base rota");
    ASSERT_TRUE(Copias().Restaura(copia, FirmaDe(u"ANA"_s, reloj), sinAvance));
    EXPECT_EQ(Periodos(), u"202609"_s);
    EXPECT_FALSE(QFile::exists(base.Ruta() + u"-journal"_s));
    const QDir carpeta(Copias().Carpeta());
    const QStringList restos = carpeta.entryList({u"*.DANADA"_s}, QDir::Files);
    ASSERT_EQ(restos.size(), 1);
    EXPECT_EQ(BytesDe(carpeta.filePath(restos.first())), "restos de una base");

    QFile::remove(base.Ruta());
    Archivo(u"XA.DB-journal"_s, "diario de la base perdida");
    EXPECT_THROW((void)Copias().Haz(sinAvance), ErrorBase);
    ASSERT_TRUE(Copias().Restaura(copia, FirmaDe(u"ANA"_s, reloj), sinAvance));
    EXPECT_EQ(Periodos(), u"202609"_s);
    EXPECT_FALSE(QFile::exists(base.Ruta() + u"-journal"_s));

    RompeIndice(base.Ruta()); // it reads well, and its fault goes into every copy
    ASSERT_FALSE(Respaldos::Defectos(*Base::Abre(base.Ruta())).isEmpty());
    ASSERT_TRUE(Copias().Restaura(copia, FirmaDe(u"ANA"_s, reloj), sinAvance));
    EXPECT_TRUE(Respaldos::Defectos(*Base::Abre(base.Ruta())).isEmpty());
}

TEST_F(Backups, ACopyOfAnEarlierVersionGetsTheTablesOfThisOne) {
    const QString pasos = base.Carpeta() + u"/pasos"_s;
    ASSERT_TRUE(QDir().mkpath(pasos) &&
                QFile::copy(u":/esquema/0001_shared_tables.sql"_s, pasos + u"/0001_shared_tables.sql"_s));
    base.Cierra();
    const QString anterior = base.Carpeta() + u"/anterior"_s;
    ASSERT_EQ(Esquema({pasos}).Aplica(*Base::Crea(anterior)).version, 1);
    ASSERT_TRUE(Copias().Restaura(anterior, FirmaDe(u"ANA"_s, reloj), sinAvance));
    EXPECT_NO_THROW(ExigeVersion(*Base::Abre(base.Ruta()), VersionDelEsquema(formularios)));
    EXPECT_EQ(VersionDe(*Base::Abre(anterior)), 1);
}

TEST_F(Sending, MovesEveryRowOfThatDeclarationAndStampsIt) {
    Graba(u"202609"_s);
    Graba(u"202610"_s);
    const ResultadoEnvio resultado = Envia(u"202609"_s);
    ASSERT_TRUE(resultado.veredicto);
    EXPECT_EQ(resultado.correl, u"1"_s);
    for (const QString& tabla : kTablas) {
        EXPECT_EQ(base.Filas(u"SELECT periodo FROM "_s + tabla), QStringList{u"202610"_s});
        EXPECT_EQ(base.Filas(u"SELECT periodo FROM H"_s + tabla), QStringList{u"202609"_s});
        EXPECT_EQ(Valor(u"SELECT cNumero FROM H"_s + tabla), ChecksumDe(u'H' + tabla, u"1"_s));
    }
    EXPECT_EQ(
        base.Filas(u"SELECT estado, norden, fec_env, control, correl, fec_pro FROM HCAB WHERE bcolibrad IS NULL"_s),
        QStringList{u"1|0|21/11/2026|"_s + resultado.control + u"|1|fec_pro"_s});
}

// The deletion of a sent declaration leaves its cash-sale rows, wanted so.
TEST_F(Sending, NumbersOfADeletedCopyAreNotGivenAgain) {
    Graba(u"202609"_s);
    const ResultadoEnvio borrada = Envia(u"202609"_s);
    for (const QString& tabla : {u"HDET"_s, u"HCAB"_s, u"HF518PDETCP"_s, u"HF518PDET"_s, u"HF518PCAB"_s})
        base->Ejecuta(u"DELETE * FROM "_s + tabla);
    Graba(u"202609"_s);
    const ResultadoEnvio nueva = Envia(u"202609"_s);
    ASSERT_TRUE(nueva.veredicto);
    EXPECT_EQ(nueva.correl, u"2"_s);
    EXPECT_GT(nueva.control, borrada.control);
}

/// One program after the other on a file, all at once on a server; who is refused a moment's turn asks again.
TEST_F(Sending, NumbersAreGivenOnceHoweverManyProgramsAsk) {
    constexpr int kProgramas = 4;
    constexpr int kVeces = 5;
    for (int i = 0; i < kProgramas * kVeces; ++i)
        Graba(QString::number(201001 + i / 12 * 100 + i % 12));
    QStringList periodos = base.Filas(u"SELECT periodo FROM CAB ORDER BY periodo"_s);
    std::mutex cerrojo;
    QStringList dados;
    const auto trabaja = [&] {
        const auto propia = Base::Abre(base.Ruta());
        const EntornoRegistro registro(*propia, reloj, base.Carpeta(), u"ANA"_s);
        for (;;) {
            QString periodo;
            {
                const std::lock_guard guarda(cerrojo);
                if (periodos.isEmpty())
                    return;
                periodo = periodos.takeFirst();
            }
            const auto insiste = [](const auto& trabajo) {
                for (;;) {
                    try {
                        return trabajo();
                    } catch (const Error& error) {
                        if (!error.Es(NumeroError::BaseBloqueada))
                            throw;
                        std::this_thread::sleep_for(std::chrono::milliseconds(1));
                    }
                }
            };
            const ResultadoEnvio enviada = insiste([&] {
                const ClaveDeclaracion clave{
                    .ruc = Ruc(kRucMuestra), .periodo = *Periodo::DeTabla(periodo), .formulario = kNumFormulario};
                return Envio(*propia, formularios).Envia(clave, OtroOriginal::Rechazado, FirmaDe(u"ANA"_s, reloj));
            });
            const QString informe = insiste([&] { return NuevoReporte(registro, u"PER006"_s, 6, kRucMuestra); });
            const std::lock_guard guarda(cerrojo);
            dados.append(QStringList{enviada.control, informe});
        }
    };
    {
        std::vector<std::jthread> programas;
        for (int i = 0; i < kProgramas; ++i)
            programas.emplace_back(trabaja);
    }
    EXPECT_EQ(dados.size(), 2 * kProgramas * kVeces);
    dados.removeDuplicates();
    EXPECT_EQ(dados.size(), 2 * kProgramas * kVeces);
}

// The last row of the last table can't be summed: all that was moved before it must come back.
TEST_F(Sending, AFailureHalfWayLeavesTheDeclarationRegistered) {
    Graba(u"202609"_s);
    base->Ejecuta(u"UPDATE F518PDETCP SET mto_detcp = ?"_s, {QString(400, u'z')});
    EXPECT_THROW((void)Envia(u"202609"_s), Desbordamiento);
    for (const QString& tabla : kTablas)
        EXPECT_EQ(base.Filas(u"SELECT (SELECT count(*) FROM %1), (SELECT count(*) FROM H%1)"_s.arg(tabla)),
                  QStringList{u"1|0"_s});
    EXPECT_EQ(Valor(u"SELECT count(*) FROM PARAM"_s), u"0"_s);
}
