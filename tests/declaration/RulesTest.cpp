#include "declaration/Boxes.h"
#include "declaration/Consistency.h"
#include "support/Test.h"

namespace {

TEST(Boxes, ArithmeticFollowsEveryChange) {
    const struct {
        QString c401, c402, c404, c403, c405;
    } casos[] = {
        {u"1,000"_s, u"(300)"_s, u"50"_s, u"700"_s, u"750"_s}, // shown in parentheses, subtracted all the same
        {u"100"_s, u"300"_s, {}, u"0"_s, u"0"_s},              // no credit
        {u"0"_s, {}, {}, u"0"_s, u"0"_s},                      // a typed 0 isn't empty
        {{}, {}, u"7"_s, {}, u"7"_s},
        {u"999,999,999,999"_s, u"1"_s, u"2"_s, u"999,999,999,998"_s, u"1,000,000,000,000"_s},
        {u"10.50"_s, {}, {}, u"11"_s, u"11"_s},
    };
    for (const auto& caso : casos) {
        Montos montos;
        montos.Cambia(401, caso.c401);
        montos.Cambia(402, caso.c402);
        montos.Cambia(404, caso.c404);
        EXPECT_EQ(montos.Texto(403), caso.c403) << caso.c401.toStdString();
        EXPECT_EQ(montos.Texto(405), caso.c405) << caso.c401.toStdString();
        for (const int casilla : {401, 402, 404})
            montos.Cambia(casilla, {});
        EXPECT_EQ(montos.Texto(403) + montos.Texto(405), QString()) << "emptied sources empty the results";
    }
}

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
    return {.forma = FormaDePago::Cheque, .banco = banco, .numeroCheque = numero};
}

const Pago kEfectivo{.forma = FormaDePago::Efectivo};

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
