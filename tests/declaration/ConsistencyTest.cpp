#include "declaration/Consistency.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

const QString kRegla1 = u"Debe consignar el importe a pagar en Percepciones."_s;
const QString kRegla2 = u"Debe consignar importe a pagar en Percepciones."_s;
const QString kRegla3 = u"Indique la forma de pago."_s;
const QString kRegla4 = u"Seleccione el banco."_s;
const QString kRegla5 = u"Ingrese el número de cheque."_s;
const QString kRegla6 = u"Ingrese un número de cheque diferente de '0'."_s;

Declaracion Con(const QString& c401, const QString& c410, const Pago& pago) {
    Declaracion declaracion;
    declaracion.montos.Cambia(401, c401);
    declaracion.montos.Cambia(410, c410);
    declaracion.pago = pago;
    return declaracion;
}

Pago Cheque(const QString& banco, const QString& numero) {
    return {u"C"_s, banco, numero, {}};
}

const Pago kEfectivo{u"E"_s, {}, {}, {}};

TEST(Consistency, EveryRuleFiresByItself) {
    const struct {
        const char* nombre;
        Declaracion declaracion;
        QStringList lineas;
    } casos[] = {
        {"clean, cash", Con(u"100"_s, u"100"_s, kEfectivo), {}},
        {"debt without amount", Con(u"100"_s, {}, kEfectivo), {kRegla1}},
        {"nothing at all", Con({}, {}, {}), {kRegla2, kRegla3}},
        {"amount without debt", Con({}, u"5"_s, kEfectivo), {}},
        {"no way of payment", Con(u"100"_s, u"100"_s, {}), {kRegla3}},
        {"cheque without bank", Con(u"1"_s, u"1"_s, Cheque({}, {})), {kRegla4}},
        {"no bank, zero number", Con(u"1"_s, u"1"_s, Cheque({}, u"0"_s)), {kRegla4, kRegla6}},
        {"cheque without number", Con(u"1"_s, u"1"_s, Cheque(u"02"_s, {})), {kRegla5}},
        {"number 000", Con(u"1"_s, u"1"_s, Cheque(u"02"_s, u"000"_s)), {kRegla6}},
        {"number of letters", Con(u"1"_s, u"1"_s, Cheque(u"02"_s, u"A00"_s)), {}},
    };
    for (const auto& [nombre, declaracion, lineas] : casos)
        EXPECT_EQ(Inconsistencias(declaracion), lineas) << nombre;
}

} // namespace
