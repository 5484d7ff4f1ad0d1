#include "printouts/PrintList.h"
#include "printouts/PrintOutFixture.h"
#include "printouts/RunReport.h"
#include "reports/SpoolRegistry.h"
#include "values/Progress.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

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
        const ListaLarga lista(base, SqlParaImprimir(taller.proceso, enviadas));
        QStringList filas;
        for (const QStringList& fila : lista.Lee(0, lista.Filas()))
            filas += fila[ColumnaImprimir::PeriodoMostrado] + u'|' +
                     fila[enviadas ? +ColumnaImprimirEnviada::Correl : +ColumnaImprimir::Rectifica];
        return filas;
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
    SinAvance nadie;
    const QByteArray spool =
        BytesDeTexto(RutaDeInforme(taller.proceso.rutaRPT, EscribeInforme(taller.proceso, datos, nadie)));
    EXPECT_TRUE(spool.contains("\npPos|10|1400|                    año de otra época|False|8|0|\n"));
    EXPECT_THAT(taller.base.Filas(u"SELECT CodRep, Doc_id_d FROM SPOOL"_s), ElementsAre(u"PER005|20990518018"_s));
    EXPECT_THROW(static_cast<void>(EscribeInforme(taller.proceso, DatosErrores{lista + u"x"_s, {}, {}, {}}, nadie)),
                 Error);
}
