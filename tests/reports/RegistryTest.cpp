#include "reports/ReportFixture.h"
#include "reports/RunReport.h"
#include "reports/SpoolRegistry.h"

#include <QDir>

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

#include "Printers.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

TEST(Registry, NumbersFilesAcrossTheTableAndReportsWithinTheirCode) {
    Taller taller;
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, taller.clave.ruc), u"00000001.PRN"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER007"_s, 6, taller.clave.ruc), u"00000002.PRN"_s);
    taller.proceso.baseDatos->Ejecuta(u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('OTRO','000041',"
                                      "'00000098.PRN')"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, taller.clave.ruc), u"00000099.PRN"_s);
    EXPECT_THAT(taller.Filas(u"SELECT * FROM SPOOL WHERE CodRep='PER006' ORDER BY Secuencia"_s),
                ElementsAre(u"PER006|000001|00000001.PRN|2026-02-09 18:04:05|ANA|6|20990518018"_s,
                            u"PER006|000002|00000099.PRN|2026-02-09 18:04:05|ANA|6|20990518018"_s));
}

TEST(Registry, NeverGivesANameTwiceWhateverStandsInTheTable) {
    Taller taller;
    taller.proceso.baseDatos->Ejecuta(u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('A','1','MANUAL.PRN'),"
                                      "('A','2','00000001.PRN'),('A','3','00000002.PRN')"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, {}), u"00000003.PRN"_s);
}

TEST(Registry, KeepsItsRowWhenTheReportCantBeWritten) {
    Taller taller;
    taller.Cabecera({});
    QDir(taller.proceso.rutaRPT).removeRecursively();
    EXPECT_THROW(static_cast<void>(ImprimeDeclaracion(taller.proceso, taller.clave, false)), Error);
    EXPECT_THAT(taller.Filas(u"SELECT CodRep, Archivo FROM SPOOL"_s), ElementsAre(u"PER006|00000001.PRN"_s));
}

namespace {

constexpr int kPorPrograma = 40;

/// The other program may hold the base too long: then once more.
template <typename Accion>
void Insiste(const Accion& accion) {
    for (;;) {
        try {
            accion();
            return;
        } catch (const ErrorBase& error) {
            if (!error.Es(NumeroError::BaseBloqueada))
                throw;
        }
    }
}

/// One of several programs on the same base, as a process of its own: it allocates names as fast as it can.
void Programa(const QString& ruta) {
    const RelojSistema reloj;
    Proceso proceso(reloj);
    Insiste([&] { proceso.baseDatos = Base::Abre(ruta); });
    for (int i = 0; i < kPorPrograma; ++i)
        Insiste([&] { static_cast<void>(NuevoReporte(proceso, u"PER006"_s, 6, {})); });
}

pid_t Lanza(const QString& ruta) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        int codigo = 1;
        try {
            Programa(ruta);
            codigo = 0;
        } catch (const std::exception&) {
            codigo = 2;
        }
        _exit(codigo);
    }
    return hijo;
}

} // namespace

TEST(Registry, GivesTwoProgramsAtOnceDifferentNames) {
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"XA.DB"_s);
    CreaBase(ruta).reset(); // closed before the fork: a connection doesn't survive one
    const pid_t hijos[] = {Lanza(ruta), Lanza(ruta)};
    for (const pid_t hijo : hijos) {
        int estado = 1;
        ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
        EXPECT_EQ(estado, 0);
    }
    const auto base = Base::Abre(ruta);
    Registros fila =
        base->Lee(u"SELECT count(*), count(DISTINCT Archivo), count(DISTINCT Secuencia), max(Archivo) FROM SPOOL"_s);
    ASSERT_TRUE(fila.Siguiente());
    EXPECT_EQ(fila.Entero(0), 2 * kPorPrograma);
    EXPECT_EQ(fila.Entero(1), 2 * kPorPrograma);
    EXPECT_EQ(fila.Entero(2), 2 * kPorPrograma);
    EXPECT_EQ(fila.Texto(3), u"00000080.PRN"_s);
}
