#include "form518/Form0518.h"
#include "printouts/PrintList.h"
#include "printouts/RunReport.h"
#include "reports/PageRange.h"
#include "reports/ReportFixture.h"
#include "reports/SpoolRegistry.h"
#include "values/Error.h"

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

TEST(PrintList, OffersTheUsersDeclarationsOfTheKindAskedFor) {
    Taller taller;
    taller.Cabecera({}, {}, u"1"_s);
    taller.clave.periodo = Periodo(2026, 2);
    taller.Cabecera({});
    taller.clave.enviada = true;
    for (const QString& correl : {u"1"_s, u"2"_s}) {
        taller.clave.correl = correl;
        taller.Cabecera({});
    }
    Base& base = *taller.base;
    const auto resumen = [&](bool enviadas) {
        const ConsultaSql consulta = SqlParaImprimir(taller.proceso, enviadas);
        return taller.base.Filas(
            u"SELECT PERIODOf, %1 FROM (%2)"_s.arg(enviadas ? u"correl"_s : u"rectifica"_s, consulta.texto),
            {consulta.valores.begin(), consulta.valores.end()});
    };
    EXPECT_THAT(resumen(false), ElementsAre(u"022026|0"_s, u"012026|1"_s));
    EXPECT_THAT(resumen(true), testing::UnorderedElementsAre(u"022026|1"_s, u"022026|2"_s));
    base.Ejecuta(u"UPDATE HCAB SET estado = 0 WHERE correl = '1'"_s);
    EXPECT_THAT(resumen(true), ElementsAre(u"022026|2"_s));

    taller.proceso.sysUser = u"OTRO"_s;
    EXPECT_THAT(resumen(false), ElementsAre());
    base.Ejecuta(u"INSERT INTO CLAVES VALUES ('OTRO','0')"_s);
    EXPECT_EQ(resumen(false).size(), 2);
}

TEST(ErrorReport, CountsSixtyNineErrorsToAPage) {
    Taller taller;
    const QString lista = taller.base.Carpeta() + u"/x.Err"_s;
    for (const auto& [errores, hojas] : {std::pair{0, 1}, {1, 1}, {68, 1}, {69, 2}, {70, 2}, {138, 3}}) {
        EscribeEn(lista, QByteArray("01 001 20512345671 F001       Número inválido\r\n").repeated(errores));
        Libreta libreta;
        EjecutaReporte(taller.proceso, DatosErrores{lista, taller.clave.ruc, u"ÑAUPARI"_s, Periodo(2026, 1)}, libreta);
        EXPECT_EQ(libreta.Hojas(), hojas) << errores;
        QStringList textos;
        for (int pagina = 0; pagina < hojas; ++pagina)
            textos += libreta.Textos(pagina);
        EXPECT_EQ(textos.filter(u"Sub-Total"_s).size(), hojas - 1);
        EXPECT_EQ(textos[textos.size() - 2], QString(20, u' ') + u"Total de Errores:      %1"_s.arg(errores));
        EXPECT_EQ(textos.filter(u"Número inválido"_s).size(), errores);
        const QStringList ultima = libreta.Textos(hojas - 1);
        EXPECT_TRUE(ultima[1].contains(u"Pag:    %1 "_s.arg(hojas))) << "the head stands on every page";
    }
}

TEST(ErrorReport, IsRegisteredUnderItsOwnCodeAndNeedsItsList) {
    Taller taller;
    const QString lista = taller.base.Carpeta() + u"/viejo.Err"_s;
    EscribeEn(lista, "a\xf1o de otra \xe9poca\n"); // as an older program wrote it
    const DatosErrores datos{lista, taller.clave.ruc, u"ÑAUPARI"_s, Periodo(2026, 1)};
    const QByteArray spool = BytesDe(RutaDeInforme(taller.proceso.rutaRPT, EscribeInforme(taller.proceso, datos)));
    EXPECT_TRUE(spool.contains("\npPos|10|1400|                    año de otra época|False|8|0|\n"));
    EXPECT_THAT(taller.base.Filas(u"SELECT CodRep, Doc_id_d FROM SPOOL"_s), ElementsAre(u"PER005|20990518018"_s));
    EXPECT_THROW(static_cast<void>(EscribeInforme(taller.proceso, DatosErrores{lista + u"x"_s, {}, {}, {}})), Error);
}

TEST(Registry, NumbersFilesAcrossTheTableAndReportsWithinTheirCode) {
    Taller taller;
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, taller.clave.ruc.Texto()), u"00000001.PRN"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER007"_s, 6, taller.clave.ruc.Texto()), u"00000002.PRN"_s);
    taller.proceso.baseDatos->Ejecuta(u"INSERT INTO SPOOL (CodRep, Secuencia, Archivo) VALUES ('OTRO','000041',"
                                      "'00000098.PRN')"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, taller.clave.ruc.Texto()), u"00000099.PRN"_s);
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
    Taller taller;
    const RelojConOtroPrograma reloj(taller.proceso);
    Proceso proceso(reloj, {Formulario0518()}, kNumFormulario);
    proceso.baseDatos = Base::Abre(taller.base.Ruta());
    EXPECT_EQ(NuevoReporte(proceso, u"PER006"_s, 6, {}), u"00000001.PRN"_s);
    EXPECT_EQ(NuevoReporte(taller.proceso, u"PER006"_s, 6, {}), u"00000002.PRN"_s);
}
