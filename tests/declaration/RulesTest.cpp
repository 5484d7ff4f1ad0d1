#include "declaration/Boxes.h"
#include "declaration/Consistency.h"
#include "declaration/TypedForm.h"
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

TEST(TypedForm, ComesBackFromItsTextAndNothingComesFromHalfOfIt) {
    LoEscrito escrito;
    escrito.periodo = u"1_/____"_s;
    escrito.montos.Cambia(401, u"1,000"_s);
    escrito.montos.Cambia(402, u"300"_s); // as it stands while it is being typed
    escrito.pago = {.forma = FormaDePago::Cheque, .banco = u"02"_s, .numeroCheque = u"\"1'"_s};
    escrito.rectifica = Rectificacion::No;
    escrito.pestania = 2;
    const QString json = escrito.EnJson();
    const LoEscrito vuelto = LoEscrito::DeJson(json).value();
    EXPECT_EQ(vuelto.montos.Texto(402) + vuelto.montos.Texto(403) + vuelto.montos.Texto(404), u"(300)700"_s);
    EXPECT_EQ(vuelto.periodo + vuelto.pago.banco + vuelto.pago.numeroCheque, u"1_/____02\"1'"_s);
    EXPECT_EQ(vuelto.pago.forma, FormaDePago::Cheque);
    EXPECT_EQ(vuelto.rectifica, Rectificacion::No);
    EXPECT_EQ(vuelto.pestania, 2);
    EXPECT_FALSE(vuelto.claveFija);
    for (const QString& roto : {QString(), u"{}"_s, json.chopped(1), QString(json).replace(u"\"402\""_s, u"\"40\""_s),
                                QString(json).replace(u"\"pestania\":2"_s, u"\"pestania\":3"_s),
                                QString(json).replace(u"\"banco\":\"02\""_s, u"\"banco\":2"_s)})
        EXPECT_FALSE(LoEscrito::DeJson(roto)) << roto.toStdString();
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
