#include "reports/PageRange.h"
#include "reports/PrintList.h"
#include "reports/ReportFixture.h"
#include "reports/RunReport.h"
#include "reports/SpoolRegistry.h"
#include "values/Error.h"

#include <gmock/gmock.h>

#include "Printers.h"

using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

TEST(PageRange, ChecksItsFieldsInOrder) {
    const QString sinInicio = u"Ingrese página de inicio."_s;
    const QString desdeUno = u"Página inicial debe ser a partir de 1."_s;
    const QString mayorQueTotal = u"Página inicial no debe ser mayor a total de páginas del reporte."_s;
    const QString sinFin = u"Ingrese página de Fin."_s;
    const QString alReves = u"Página de Inicio debe ser mayor a página de Fin."_s;
    const struct {
        QString desde, hasta, mensaje, campo;
    } casos[] = {{u"1"_s, u"20"_s, {}, {}},
                 {u"1 2"_s, u"1"_s, {}, {}},
                 {u" 2"_s, u"2.9"_s, {}, {}},
                 {u""_s, u""_s, sinInicio, u"txtPagDesde"_s},
                 {u"0"_s, u""_s, desdeUno, u"txtPagDesde"_s},
                 {u" "_s, u"5"_s, desdeUno, u"txtPagDesde"_s},
                 {u"21"_s, u""_s, mayorQueTotal, u"txtPagDesde"_s},
                 {u"5"_s, u""_s, sinFin, u"txtPagHasta"_s},
                 {u"5"_s, u"4"_s, alReves, u"txtPagHasta"_s},
                 {u"5"_s, u" "_s, alReves, u"txtPagHasta"_s}};
    for (const auto& [desde, hasta, mensaje, campo] : casos) {
        const Veredicto veredicto = ValidaRango(desde, hasta, 20);
        EXPECT_EQ(veredicto.mensaje.value_or(Mensaje()).texto, mensaje) << qPrintable(desde + u'-' + hasta);
        EXPECT_EQ(veredicto.campo, campo);
    }
}

TEST(PrintList, OffersTheUsersDeclarationsOfTheKindAskedFor) {
    Taller taller;
    taller.Cabecera({}, {}, u"1"_s);
    taller.clave.periodo = u"202602"_s;
    taller.Cabecera({});
    taller.clave.enviada = true;
    for (const QString& correl : {u"1"_s, u"2"_s}) {
        taller.clave.correl = correl;
        taller.Cabecera({});
    }
    Base& base = *taller.proceso.baseDatos;
    const auto resumen = [&](bool enviadas) {
        const ConsultaSql consulta = SqlParaImprimir(taller.proceso, enviadas);
        Registros fila = base.Lee(consulta.texto, {consulta.valores.begin(), consulta.valores.end()});
        QStringList filas;
        while (fila.Siguiente())
            filas.append(
                fila.Texto(ColumnaImprimir::PeriodoMostrado) + u' ' +
                (enviadas ? fila.Texto(ColumnaImprimirEnviada::Correl) : fila.Texto(ColumnaImprimir::Rectifica)));
        return filas;
    };
    EXPECT_THAT(resumen(false), ElementsAre(u"022026 0"_s, u"012026 1"_s));
    EXPECT_THAT(resumen(true), testing::UnorderedElementsAre(u"022026 1"_s, u"022026 2"_s));
    base.Ejecuta(u"UPDATE HCAB SET estado = 0 WHERE correl = '1'"_s);
    EXPECT_THAT(resumen(true), ElementsAre(u"022026 2"_s));

    taller.proceso.sysUser = u"OTRO"_s;
    EXPECT_THAT(resumen(false), ElementsAre());
    base.Ejecuta(u"INSERT INTO CLAVES VALUES ('OTRO','0')"_s);
    EXPECT_EQ(resumen(false).size(), 2);
}

TEST(ErrorReport, CountsSixtyNineErrorsToAPage) {
    const struct {
        int errores, hojas, subTotales;
    } casos[] = {{0, 1, 0}, {1, 1, 0}, {68, 1, 0}, {69, 2, 1}, {70, 2, 1}, {138, 3, 2}};
    Taller taller;
    const QString lista = taller.Carpeta() + u"/x.Err"_s;
    for (const auto& [errores, hojas, subTotales] : casos) {
        EscribeEn(lista, QByteArray("01 001 20512345671 F001       Número inválido\r\n").repeated(errores));
        Libreta libreta;
        EjecutaReporte(taller.proceso, DatosErrores{lista, taller.clave.ruc, u"ÑAUPARI"_s, u"202601"_s}, libreta);
        EXPECT_EQ(libreta.Hojas(), hojas) << errores;
        QStringList textos;
        for (int pagina = 0; pagina < hojas; ++pagina)
            textos += libreta.Textos(pagina);
        EXPECT_EQ(textos.filter(u"Sub-Total"_s).size(), subTotales);
        EXPECT_EQ(textos[textos.size() - 2], QString(20, u' ') + u"Total de Errores:      %1"_s.arg(errores));
        EXPECT_EQ(textos.filter(u"Número inválido"_s).size(), errores);
        const QStringList ultima = libreta.Textos(hojas - 1);
        EXPECT_TRUE(ultima[1].contains(u"Pag:    %1 "_s.arg(hojas))) << "the head stands on every page";
    }
}

TEST(ErrorReport, IsRegisteredUnderItsOwnCodeAndNeedsItsList) {
    Taller taller;
    const QString lista = taller.Carpeta() + u"/viejo.Err"_s;
    EscribeEn(lista, "a\xf1o de otra \xe9poca\n"); // as an older program wrote it
    const DatosErrores datos{lista, taller.clave.ruc, u"ÑAUPARI"_s, u"202601"_s};
    const QStringList lineas = LineasDe(RutaDeInforme(taller.proceso.rutaRPT, EscribeInforme(taller.proceso, datos)));
    EXPECT_THAT(lineas, testing::Contains(u"pPos|10|1400|                    año de otra época|False|8|0|"_s));
    EXPECT_THAT(taller.Filas(u"SELECT CodRep, Doc_id_d FROM SPOOL"_s), ElementsAre(u"PER005|20990518018"_s));
    EXPECT_THROW(static_cast<void>(EscribeInforme(taller.proceso, DatosErrores{lista + u"x"_s, {}, {}, {}})), Error);
}
