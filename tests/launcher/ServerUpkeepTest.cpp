#include "data/RecordChecksum.h"
#include "data/ServerControl.h"
#include "data/ServerFailure.h"
#include "data/ServerRoles.h"
#include "family/ChangeLog.h"
#include "family/WorkLock.h"
#include "form518/Form0518.h"
#include "launcher/Backups.h"
#include "launcher/CommandLine.h"
#include "launcher/Moving.h"
#include "launcher/PreparedBase.h"
#include "launcher/TableCopy.h"
#include "platform/Clock.h"
#include "platform/ProfileFile.h"
#include "support/ProgressScript.h"
#include "support/TemporaryBase.h"
#include "values/Progress.h"

#include <QTextStream>

namespace {

/// An installation in a folder, and an empty database of the server.
class ServerUpkeep : public testing::Test {
  protected:
    ~ServerUpkeep() override { QDir::setCurrent(QDir::rootPath()); }

    int Corre(const QStringList& argumentos) {
        salida.clear();
        errores.clear();
        QTextStream flujoSalida(&salida);
        QTextStream flujoErrores(&errores);
        return EjecutaConsola(QStringList{u"consola"_s} + argumentos, {flujoSalida, flujoErrores},
                              {reloj, perfil.Ruta(), carpeta, u"CONTADOR"_s, formularios});
    }
    int InstalaEnServidor() { return Corre({u"--instalar"_s, u"--servidor"_s, Servidor()}); }
    QString Servidor() const { return servidor->Texto(); }
    QString Opcion(QStringView clave) const { return perfil.Lee(u"Options", clave); }
    QString Vigente() const { return Opcion(u"DBPath") + Opcion(u"DBName"); }

    /// A row in every table of a declaration and its sent copies, with texts that a wire could spoil.
    static void Llena(Base& base) {
        for (const QString& tabla : base.Tablas()) {
            const Tabla& forma = base.Describe(tabla);
            if (!forma.columnas.last().nombre.startsWith("cNumero"_L1))
                continue;
            for (const QString& texto : {u"Ñandú \\ 'x'\t\n"_s, u""_s}) {
                Registro fila(forma);
                for (int i = 0; i < forma.columnas.size(); ++i)
                    fila.Pon(i, forma.columnas[i].entera ? QVariant(-6) : QVariant(texto));
                fila.Pon(static_cast<int>(forma.columnas.size()) - 1, u"000123"_s);
                base.Agrega(fila);
            }
        }
        base.Ejecuta(u"UPDATE CAB SET nrocheque = NULL"_s);
    }
    /// What the tables hold, but for the log.
    static QMap<QString, QByteArray> Firmas(Base& base, const QStringList& tablas) {
        QMap<QString, QByteArray> firmas;
        for (const QString& tabla : tablas) {
            if (tabla != u"BITACORA")
                firmas.insert(tabla, HuellaDe(base, tabla, [] {}).firma);
        }
        return firmas;
    }
    /// Those of this base's restores: other tests make their own.
    int BasesDePaso() const {
        MandoDeServidor mando(Servidor(), MandoDeServidor::Lugar::AlLado);
        return mando
            .PideUno(u"SELECT count(*) FROM pg_database WHERE starts_with(datname, %1)"_s.arg(
                TextoSql(mando.Nombrada() + u"_paso_"_s)))
            .toInt();
    }

    const Formularios formularios{Formulario0518()};
    QTemporaryDir raiz;
    ArchivoPerfil perfil{raiz.filePath(u"XA000.INI"_s)};
    QString carpeta{raiz.filePath(u"xa518"_s)};
    std::unique_ptr<BaseEnServidor> servidor = BaseEnServidor::Vacia();
    QString salida;
    QString errores;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
};

/// Stops a work at a part of its way.
class Freno final : public Avance {
  public:
    void Va(qint64 hecho, qint64 total) override {
        if (hecho * 4 > total * 3)
            throw Detenido();
    }
};

} // namespace

TEST_F(ServerUpkeep, AMoveThereAndBackCarriesEveryRow) {
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0) << qPrintable(errores);
    const QString archivo = Vigente();
    Llena(*Base::Abre(archivo));
    const QString informe = carpeta + u"/RPT/00000001.PRN"_s;
    EscribeEn(informe, "Ñandú\n\n");
    Base::Abre(archivo)->Ejecuta(u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('X', '000001',"
                                 " '00000001.PRN'), ('X', '000002', '00000002.PRN')"_s);
    QStringList tablas = Base::Abre(archivo)->Tablas();
    EXPECT_GE(tablas.size(), 21);
    const auto antes = Firmas(*Base::Abre(archivo), tablas);
    ASSERT_EQ(Corre({u"--mudar"_s, Servidor()}), 0) << qPrintable(errores);
    const QString deInformes =
        u" Con ella fueron los textos de los informes: 1. Informes registrados cuyo archivo ya no"
        " estaba: 1."_s;
    EXPECT_TRUE(salida.contains(deInformes)) << qPrintable(salida);
    EXPECT_EQ(Opcion(u"DBName"), Servidor());
    EXPECT_EQ(Opcion(u"DBPath"), QString());
    EXPECT_EQ(Firmas(*Base::Abre(Servidor()), tablas), antes);
    EXPECT_EQ(Firmas(*Base::Abre(archivo), tablas), antes);
    const QString vuelta = raiz.filePath(u"vuelta.db"_s);
    Base::Abre(Servidor())->Ejecuta(u"DELETE FROM CAB WHERE Doc_id_d = ''"_s);
    EscribeEn(informe, "de otra base\n");
    ASSERT_EQ(Corre({u"--mudar"_s, vuelta}), 0) << qPrintable(errores);
    EXPECT_TRUE(salida.contains(deInformes)) << qPrintable(salida);
    EXPECT_EQ(BytesDe(informe), "de otra base\n");
    EXPECT_EQ(BytesDe(carpeta + u"/RPT/S-00000001.PRN"_s), "Ñandú\n\n");
    EXPECT_TRUE(Base::Abre(vuelta)->Busca(u"SPOOL"_s, u"WHERE Archivo = 'S-00000001.PRN'"_s, {}));
    tablas.removeOne(u"SPOOL"_s);
    EXPECT_EQ(Vigente(), QDir::toNativeSeparators(vuelta));
    EXPECT_EQ(Firmas(*Base::Abre(vuelta), tablas), Firmas(*Base::Abre(Servidor()), tablas));
    EXPECT_EQ(QFile::permissions(vuelta) & kDeOtros, QFile::Permissions());
    ASSERT_EQ(Corre({u"--bitacora"_s}), 0);
    EXPECT_EQ(salida.count(u"Base mudada"_s), 2) << qPrintable(salida);
}

TEST_F(ServerUpkeep, AMoveThatFailsOrIsStoppedLeavesProfileAndOldBase) {
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0) << qPrintable(errores);
    const QString archivo = Vigente();
    const QByteArray bytes = BytesDe(archivo);
    Freno freno;
    const Mudanza mudanza(archivo, Servidor(), carpeta, perfil, formularios);
    EXPECT_THROW((void)mudanza.Muda(FirmaDe(u"ANA"_s, reloj), freno), Detenido);
    EXPECT_EQ(CuentaDeFilas(*Base::Abre(Servidor()), u"CONT"_s), 0);
    MandoDeServidor(Servidor(), MandoDeServidor::Lugar::EnLaBase)
        .Pide(
            u"CREATE FUNCTION familia.estropea() RETURNS trigger LANGUAGE plpgsql AS"
            " $$BEGIN NEW.nombre := NEW.nombre || '.'; RETURN NEW; END$$;"
            "CREATE TRIGGER estropea BEFORE INSERT ON familia.cont FOR EACH ROW EXECUTE FUNCTION familia.estropea()"_s);
    EXPECT_EQ(Corre({u"--mudar"_s, Servidor()}), 3);
    EXPECT_TRUE(errores.contains(u"La tabla CONT no quedó igual"_s)) << qPrintable(errores);
    EXPECT_EQ(CuentaDeFilas(*Base::Abre(Servidor()), u"CONT"_s), 0);
    EXPECT_EQ(Vigente(), archivo);
    EXPECT_EQ(BytesDe(archivo), bytes);
    MandoDeServidor(Servidor(), MandoDeServidor::Lugar::EnLaBase)
        .Pide(u"DROP TRIGGER estropea ON familia.cont; INSERT INTO familia.cont SELECT 6, i::text FROM"
              " generate_series(1, 9) AS i"_s);
    const QString vuelta = raiz.filePath(u"vuelta.db"_s);
    const Mudanza atras(Servidor(), vuelta, carpeta, perfil, formularios);
    EXPECT_THROW((void)atras.Muda(FirmaDe(u"ANA"_s, reloj), freno), Detenido);
    EXPECT_FALSE(QFile::exists(vuelta));
    EXPECT_EQ(QDir(raiz.path()).entryList({u".mudanza*"_s}, QDir::Dirs | QDir::Hidden), QStringList());
}

TEST_F(ServerUpkeep, NoMoveIsMadeWhileSomebodyWorksOrOverWhatIsThere) {
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0);
    const QString archivo = Vigente();
    const auto rechaza = [&](const QString& destino) {
        EXPECT_EQ(Corre({u"--mudar"_s, destino}), 2) << qPrintable(destino + salida + errores);
        EXPECT_EQ(Vigente(), archivo);
    };
    rechaza(raiz.filePath(u"otro.db"_s));
    {
        const TrabajoUnico modulo(archivo);
        rechaza(Servidor());
    }
    (void)PreparaBase(Servidor(), formularios);
    {
        const auto puesto = Base::Abre(Servidor());
        rechaza(Servidor());
        puesto->Ejecuta(u"INSERT INTO CONT (Tip_doc_d, Doc_id_d) VALUES (6, '20990518018')"_s);
    }
    rechaza(Servidor());
    EXPECT_TRUE(errores.contains(u"la tabla CONT"_s)) << qPrintable(errores);
    EXPECT_EQ(Corre({u"--instalar"_s, u"--servidor"_s, Servidor()}), 2) << "what the file holds would be left behind";
}

TEST_F(ServerUpkeep, WhoeverWorksChangesNeitherTablesNorTheLogAndWhoeverReadsNothing) {
    ASSERT_EQ(InstalaEnServidor(), 0) << qPrintable(errores);
    EXPECT_TRUE(salida.contains(u"GRANT USAGE ON SCHEMA familia, dialecto TO xa518_lectura;"_s)) << qPrintable(salida);
    const QString cuenta = u"c"_s + QUuid::createUuid().toString(QUuid::Id128);
    for (const QString& grupo : {kGrupoTrabajo, kGrupoLectura})
        PideAlServidor(u"CREATE ROLE %1_%2 LOGIN IN ROLE %2"_s.arg(cuenta, grupo));
    const auto como = [&](const QString& grupo) { return Servidor() + u" user="_s + cuenta + u'_' + grupo; };
    const auto puede = [&](const QString& grupo, const QString& sql) {
        try {
            MandoDeServidor(como(grupo), MandoDeServidor::Lugar::EnLaBase).Pide(u"SET search_path = familia; "_s + sql);
            return true;
        } catch (const ErrorBase& error) {
            EXPECT_TRUE(error.Es(NumeroError::BaseBloqueada)) << error.what() << qPrintable(error.Detalle());
            return false;
        }
    };
    const QString asiento = u"INSERT INTO bitacora (doc_id_d, periodo, formulario, momento, suceso, marca) VALUES"
                            " ('', '', '', '', 'ENVIAR', gen_random_uuid()::text)"_s;
    const struct {
        QString sql;
        bool trabaja;
        bool lee;
    } casos[] = {
        {u"SELECT count(*) FROM bitacora"_s, true, true},
        {u"SELECT count(*) FROM cab"_s, true, true},
        {asiento, true, false},
        {u"INSERT INTO claves (usuario) VALUES (gen_random_uuid()::text)"_s, true, false},
        {u"UPDATE cont SET nombre = ''"_s, true, false},
        {u"UPDATE bitacora SET suceso = ''"_s, false, false},
        {u"DELETE FROM bitacora"_s, false, false},
        {u"TRUNCATE bitacora"_s, false, false},
        {u"ALTER TABLE cab ADD COLUMN x text"_s, false, false},
        {u"CREATE TABLE familia.x (x text)"_s, false, false},
        {u"DROP TABLE cab"_s, false, false},
        {u"UPDATE version_esquema SET version = 0"_s, false, false},
        {u"SELECT toma_puesto('ANA', 'CAJA-2', 'xa518')"_s, true, true},
        {u"UPDATE puestos SET usuario = 'LUIS'"_s, false, false},
    };
    for (const auto& [sql, trabaja, lee] : casos) {
        EXPECT_EQ(puede(kGrupoTrabajo, sql), trabaja) << qPrintable(sql);
        EXPECT_EQ(puede(kGrupoLectura, sql), lee) << qPrintable(sql);
    }
    perfil.Escribe(u"Options", u"DBName", como(kGrupoLectura));
    for (const QStringList& orden : {QStringList{u"--declarante"_s, kRucMuestra, u"--nombre"_s, u"X"_s},
                                     QStringList{u"--enviar"_s, kRucMuestra, u"202609"_s}}) {
        EXPECT_EQ(Corre(orden), 2);
        EXPECT_EQ(errores, u"consola: La cuenta con la que se conecta al servidor es sólo de lectura.\n"_s);
    }
    perfil.Escribe(u"Options", u"DBName", como(kGrupoTrabajo));
    EXPECT_EQ(Corre({u"--instalar"_s}), 0) << qPrintable(errores);
    EXPECT_TRUE(salida.contains(u"esta cuenta del servidor no lo cambia"_s)) << qPrintable(salida);
    EXPECT_EQ(Corre({u"--respaldar"_s}), 0) << qPrintable(errores);
    MandoDeServidor(Servidor(), MandoDeServidor::Lugar::EnLaBase)
        .Pide(u"DROP OWNED BY %1_%2, %1_%3; DROP ROLE %1_%2, %1_%3"_s.arg(cuenta, kGrupoTrabajo, kGrupoLectura));
}

TEST_F(ServerUpkeep, ADatabaseWithSomethingElseIsLeftAlone) {
    MandoDeServidor(Servidor(), MandoDeServidor::Lugar::EnLaBase).Pide(u"CREATE TABLE ajena (x text)"_s);
    EXPECT_EQ(InstalaEnServidor(), 15) << qPrintable(errores);
    EXPECT_FALSE(QFile::exists(perfil.Ruta())) << "nothing is named that isn't there";
    EXPECT_EQ(Corre({u"--instalar"_s, u"--servidor"_s, u"XA000.DB"_s}), 2);
}

TEST_F(ServerUpkeep, ACopyOfTheServerTakesItsPlaceButNotWhatLeftTheHouse) {
    ASSERT_EQ(InstalaEnServidor(), 0) << qPrintable(errores);
    AgregaCabecera(*Base::Abre(Servidor()), kRucMuestra, u"202609"_s, 0);
    const QStringList envio{u"--enviar"_s, kRucMuestra, u"202609"_s};
    ASSERT_EQ(Corre(envio), 0) << qPrintable(errores);
    const QString copia = carpeta + u"/RESPALDOS/XA000-20261121-100000.dump"_s;
    ASSERT_TRUE(QFile::exists(copia)) << "one is made before each send";
    EXPECT_EQ(QFile::permissions(copia) & kDeOtros, QFile::Permissions());
    const QStringList restaura{u"--restaurar"_s, copia};
    {
        const auto puesto = Base::Abre(Servidor());
        EXPECT_EQ(Corre(restaura), 2);
        EXPECT_TRUE(errores.contains(u"Cierre los módulos en todos los puestos"_s)) << qPrintable(errores);
        EXPECT_EQ(CuentaDeFilas(*puesto, u"HCAB"_s), 1);
    }
    EXPECT_EQ(Corre({u"--restaurar"_s, perfil.Ruta()}), 2) << "no copy at all";
    const Respaldos copias(Servidor(), carpeta + u"/RESPALDOS"_s, reloj, formularios);
    AvanceDePrueba detiene([](qint64, qint64) { throw Detenido(); });
    EXPECT_THROW((void)copias.Haz(detiene), Detenido);
    EXPECT_THROW((void)copias.Restaura(copia, FirmaDe(u"ANA"_s, reloj), detiene), Detenido);
    EXPECT_EQ(copias.Lista().size(), 1);
    EXPECT_EQ(BasesDePaso(), 0);
    Base::Abre(Servidor())->Ejecuta(u"INSERT INTO INFORMES VALUES ('A.TXT', 0, 1, 'x', 'texto')"_s);
    ASSERT_EQ(Corre(restaura), 0) << qPrintable(errores);
    EXPECT_EQ(CuentaDeFilas(*Base::Abre(Servidor()), u"HCAB"_s), 0);
    EXPECT_EQ(CuentaDeFilas(*Base::Abre(Servidor()), u"INFORMES"_s), 1);
    ASSERT_EQ(Corre(envio), 0) << qPrintable(errores);
    EXPECT_TRUE(salida.startsWith(u"Copia enviada: 2\nNúmero de control: 10000002\n"_s)) << qPrintable(salida);
    ASSERT_EQ(Corre({u"--bitacora"_s}), 0);
    EXPECT_EQ(salida.count(u"Pasada a las enviadas"_s), 2) << qPrintable(salida);
    EXPECT_EQ(salida.count(u"Copia de respaldo restaurada"_s), 1) << qPrintable(salida);
    PideAlServidor(u"DROP DATABASE "_s + MandoDeServidor(Servidor(), MandoDeServidor::Lugar::AlLado).Nombrada());
    ASSERT_EQ(Corre(restaura), 0) << "of a base that is gone: " << qPrintable(errores);
    EXPECT_EQ(CuentaDeFilas(*Base::Abre(Servidor()), u"CAB"_s), 1);
    EXPECT_EQ(BasesDePaso(), 0);
    const QByteArray camino = qgetenv("PATH");
    qputenv("PATH", raiz.path().toLocal8Bit());
    EXPECT_EQ(Corre({u"--respaldar"_s}), 3);
    qputenv("PATH", camino);
    EXPECT_TRUE(errores.contains(u"instale el paquete postgresql-client"_s)) << qPrintable(errores);
}
