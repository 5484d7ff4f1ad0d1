#include "declaration/TaxPeriod.h"

#include "support/TemporaryBase.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

const QDate kHoy(2026, 11, 21);
const QString kNoValido = u"El período no es válido."_s;

TEST(TaxPeriod, AcceptsFromJanuary2005ToTheCurrentMonth) {
    const struct {
        QString mostrado;
        bool pasa, habla;
    } casos[] = {{u"01/2005"_s, true, false},  {u"12/2004"_s, false, true},  {u"11/2026"_s, true, false},
                 {u"12/2026"_s, false, true},  {u"13/2005"_s, false, true},  {u"00/2006"_s, false, true},
                 {u"0_/2006"_s, false, false}, {u"__/____"_s, false, false}, {u"99/9999"_s, false, true}};
    for (const auto& [mostrado, pasa, habla] : casos) {
        const Veredicto veredicto = ValidaPeriodo(mostrado, kHoy);
        EXPECT_EQ(veredicto.pasa, pasa) << qPrintable(mostrado);
        EXPECT_EQ(veredicto.mensaje.value_or(Mensaje()).texto, habla ? kNoValido : QString()) << qPrintable(mostrado);
    }
}

TEST(TaxPeriod, LetsAKeyThatIsNoLongerChangedPassAndAnUnfinishedOneStop) {
    const prueba::BaseTemporal base;
    base.Agrega(u"CAB"_s, {{u"Doc_id_d"_s, u"20100000009"_s}, {u"periodo"_s, u"202610"_s}});
    base.Agrega(u"HCAB"_s, {{u"Doc_id_d"_s, u"20100000009"_s}, {u"periodo"_s, u"202609"_s}});
    const QString ruc = u"20100000009"_s;
    const struct {
        const char* nombre;
        Identificacion identificacion;
        QString mensaje; ///< empty: passes; "-": refused in silence
    } casos[] = {
        {"frozen key", {true, ruc, u"10/2026"_s, false}, {}},
        {"only a sent copy", {true, ruc, u"09/2026"_s, true}, {}},
        {"no period, modify", {false, ruc, u"__/____"_s, false}, u"-"_s},
        {"half a period", {true, ruc, u"1_/2026"_s, true}, u"-"_s},
    };
    for (const auto& [nombre, identificacion, mensaje] : casos) {
        const Veredicto veredicto = ValidaContForm1(*base, identificacion, kHoy);
        EXPECT_EQ(veredicto.pasa ? QString() : veredicto.mensaje.value_or(Mensaje{{}, u"-"_s, {}}).texto, mensaje)
            << nombre;
        EXPECT_EQ(veredicto.campo, mensaje.isEmpty() ? QString() : kCampoPeriodo) << nombre;
    }
}

} // namespace
