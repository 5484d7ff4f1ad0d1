#include "declaration/TaxPeriod.h"

#include "support/TemporaryBase.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

const QDate kHoy(2026, 11, 21);
const QString kNoValido = u"El período no es válido."_s;

TEST(TaxPeriod, AcceptsFromJanuary2005ToTheCurrentMonth) {
    struct Caso {
        QString mostrado;
        bool pasa;
        bool habla;
    };
    const QList<Caso> casos = {{u"01/2005"_s, true, false},  {u"12/2004"_s, false, true},  {u"11/2026"_s, true, false},
                               {u"12/2026"_s, false, true},  {u"13/2005"_s, false, true},  {u"00/2006"_s, false, true},
                               {u"0_/2006"_s, false, false}, {u"__/____"_s, false, false}, {u"99/9999"_s, false, true}};
    for (const Caso& caso : casos) {
        const Veredicto veredicto = ValidaPeriodo(caso.mostrado, kHoy);
        EXPECT_EQ(veredicto.pasa, caso.pasa) << caso.mostrado.toStdString();
        EXPECT_EQ(veredicto.mensaje.value_or(Mensaje()).texto, caso.habla ? kNoValido : QString())
            << caso.mostrado.toStdString();
    }
}

TEST(TaxPeriod, RefusesASecondDeclarationOnlyWhileTheKeyMayChange) {
    const prueba::BaseTemporal base;
    base->Ejecuta(
        u"INSERT INTO CAB (Doc_id_d,tip_doc_d,periodo,Formulario) VALUES ('20100000009',6,'202610','0518')"_s);
    base->Ejecuta(u"INSERT INTO HCAB (Doc_id_d,tip_doc_d,periodo,Formulario,correl) "
                  "VALUES ('20100000009',6,'202609','0518','1')"_s);
    struct Caso {
        QString nombre;
        Identificacion identificacion;
        QString mensaje; ///< empty: passes; "-": refused in silence
        QString campo;
    };
    const QList<Caso> casos = {
        {u"registered"_s,
         {true, u"20100000009"_s, u"10/2026"_s, true},
         u"La declaración ya ha sido registrada."_s,
         kCampoPeriodo},
        {u"frozen key"_s, {true, u"20100000009"_s, u"10/2026"_s, false}, {}, {}},
        {u"modify"_s, {false, u"20100000009"_s, u"10/2026"_s, false}, {}, {}},
        {u"only a sent copy"_s, {true, u"20100000009"_s, u"09/2026"_s, true}, {}, {}},
        {u"no declarant"_s, {true, {}, u"10/2026"_s, true}, u"Debe seleccionar un Contribuyente."_s, kCampoRuc},
        {u"no period"_s, {true, u"20100000009"_s, u"__/____"_s, true}, u"Debe ingresar Período."_s, kCampoPeriodo},
        {u"no period, modify"_s, {false, u"20100000009"_s, u"__/____"_s, false}, u"-"_s, kCampoPeriodo},
        {u"half a period"_s, {true, u"20100000009"_s, u"1_/2026"_s, true}, u"-"_s, kCampoPeriodo},
        {u"future"_s, {true, u"20100000009"_s, u"12/2026"_s, true}, kNoValido, kCampoPeriodo},
    };
    for (const Caso& caso : casos) {
        const Veredicto veredicto = ValidaContForm1(*base, caso.identificacion, kHoy);
        EXPECT_EQ(veredicto.pasa, caso.mensaje.isEmpty()) << caso.nombre.toStdString();
        EXPECT_EQ(veredicto.campo, caso.campo) << caso.nombre.toStdString();
        EXPECT_EQ(veredicto.mensaje ? veredicto.mensaje->texto : QString(),
                  caso.mensaje == u"-" ? QString() : caso.mensaje)
            << caso.nombre.toStdString();
    }
}

TEST(TaxPeriod, RefusesAnOldRucByItsLengthAlone) {
    EXPECT_FALSE(RechazaRucDeOcho(u"ABCDEFGH"_s));
    EXPECT_FALSE(RechazaRucDeOcho(u" 12345678 "_s));
    EXPECT_TRUE(RechazaRucDeOcho(u"20100000009"_s));
    EXPECT_TRUE(RechazaRucDeOcho(u"1234567"_s));
}

} // namespace
