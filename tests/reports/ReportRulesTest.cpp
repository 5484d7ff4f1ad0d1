#include "form518/Form0518.h"
#include "printouts/PrintList.h"
#include "printouts/RunReport.h"
#include "reports/PageRange.h"
#include "reports/ReportFixture.h"
#include "reports/SpoolRegistry.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

TEST(PageRange, ChecksItsFieldsInOrder) {
    const struct {
        QString rangos, mensaje;
        std::optional<CampoRango> campo;
    } casos[] = {{u"1-20|1 2-1| 2-2.9"_s, {}, {}},
                 {u"-"_s, u"Ingrese página de inicio."_s, CampoRango::Desde},
                 {u"0-| -5"_s, u"Página inicial debe ser a partir de 1."_s, CampoRango::Desde},
                 {u"21-"_s, u"Página inicial no debe ser mayor a total de páginas del reporte."_s, CampoRango::Desde},
                 {u"5-"_s, u"Ingrese página de Fin."_s, CampoRango::Hasta},
                 {u"5-4|5- "_s, u"Página de Inicio debe ser mayor a página de Fin."_s, CampoRango::Hasta}};
    for (const auto& [rangos, mensaje, campo] : casos) {
        for (const QString& rango : rangos.split(u'|')) {
            const VeredictoRango veredicto = ValidaRango(rango.section(u'-', 0, 0), rango.section(u'-', 1), 20);
            EXPECT_EQ(veredicto ? QString() : veredicto.Motivo().texto, mensaje) << qPrintable(rango);
            EXPECT_EQ(veredicto.ElCampo(), campo);
        }
    }
}

TEST(Registry, NumbersFilesAcrossTheTableAndReportsWithinTheirCode) {
    ProcesoConInformes taller;
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, kRucMuestra), u"00000001.PRN"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER007"_s, 6, kRucMuestra), u"00000002.PRN"_s);
    taller.proceso.baseDatos->Ejecuta(u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('OTRO','000041',"
                                      "'00000098.PRN')"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, kRucMuestra), u"00000099.PRN"_s);
    taller.proceso.baseDatos->Ejecuta(
        u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('A','1','MANUAL.PRN'),('A','2','00000003.PRN')"_s);
    EscribeEn(RutaDeInforme(taller.proceso.rutaRPT, u"00000004.PRN"_s), "de antes de reponer una copia");
    EXPECT_EQ(NuevoReporte(taller.proceso, u"OTRO"_s, 6, {}), u"00000005.PRN"_s)
        << "whatever stands in the table or in the folder";
    EXPECT_THAT(taller.base.Filas(u"SELECT * FROM SPOOL WHERE CodRep='PER006' ORDER BY Secuencia"_s),
                ElementsAre(u"PER006|000001|00000001.PRN|2026-02-09 18:04:05|ANA|6|20990518018"_s,
                            u"PER006|000002|00000099.PRN|2026-02-09 18:04:05|ANA|6|20990518018"_s));
}

namespace {

/// A report is asked its time between the choice of its numbers and its row: another program tries to number one then.
class RelojConOtroPrograma final : public Reloj {
  public:
    explicit RelojConOtroPrograma(Proceso& otro) : m_otro(otro) {}
    QDateTime Ahora() const override {
        EXPECT_THROW(static_cast<void>(NuevoReporte(m_otro, u"PER006"_s, 6, {})), ErrorBase);
        return m_otro.reloj.Ahora();
    }

  private:
    Proceso& m_otro;
};

} // namespace

TEST(Registry, GivesTwoProgramsAtOnceDifferentNames) {
    ProcesoConInformes taller;
    const RelojConOtroPrograma reloj(taller.proceso);
    Proceso proceso(reloj, {}, {});
    proceso.baseDatos = Base::Abre(taller.base.Ruta());
    EXPECT_EQ(NuevoReporte(proceso, u"PER006"_s, 6, {}), u"00000001.PRN"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, {}), u"00000002.PRN"_s);
}
