#include "reports/ReportFixture.h"
#include "reports/RunReport.h"
#include "reports/SpoolRegistry.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

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
    taller.proceso.baseDatos->Ejecuta(
        u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('A','1','MANUAL.PRN'),('A','2','00000003.PRN')"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"OTRO"_s, 6, {}), u"00000004.PRN"_s) << "whatever stands in the table";
    EXPECT_THAT(taller.Filas(u"SELECT * FROM SPOOL WHERE CodRep='PER006' ORDER BY Secuencia"_s),
                ElementsAre(u"PER006|000001|00000001.PRN|2026-02-09 18:04:05|ANA|6|20990518018"_s,
                            u"PER006|000002|00000099.PRN|2026-02-09 18:04:05|ANA|6|20990518018"_s));
}

namespace {

constexpr int kPorPrograma = 40;

/// One of several programs on the same base, as a process of its own: it allocates names as fast as it can.
void Programa(const QString& ruta) {
    const RelojSistema reloj;
    Proceso proceso(reloj);
    for (int hechos = 0; hechos < kPorPrograma;) {
        try {
            if (!proceso.baseDatos)
                proceso.baseDatos = Base::Abre(ruta);
            static_cast<void>(NuevoReporte(proceso, u"PER006"_s, 6, {}));
            ++hechos;
        } catch (const ErrorBase& error) {
            if (!error.Es(NumeroError::BaseBloqueada)) // the other program may hold the base too long; then once more
                throw;
        }
    }
}

pid_t Lanza(const QString& ruta) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        int codigo = 0;
        try {
            Programa(ruta);
        } catch (const std::exception&) {
            codigo = 1;
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
    Registros fila = base->Lee(u"SELECT count(*), count(DISTINCT Archivo), count(DISTINCT Secuencia) FROM SPOOL"_s);
    ASSERT_TRUE(fila.Siguiente());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(fila.Entero(i), 2 * kPorPrograma) << i;
}
