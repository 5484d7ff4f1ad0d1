#include "declaration/Consistency.h"

#include "values/Error.h"

#include <QFile>
#include <QTemporaryDir>

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
    struct Caso {
        QString nombre;
        Declaracion declaracion;
        QStringList lineas;
    };
    const QList<Caso> casos = {
        {u"clean, cash"_s, Con(u"100"_s, u"100"_s, kEfectivo), {}},
        {u"zeros"_s, Con(u"0"_s, u"0"_s, kEfectivo), {}},
        {u"debt without amount"_s, Con(u"100"_s, {}, kEfectivo), {kRegla1}},
        {u"nothing at all"_s, Con({}, {}, {}), {kRegla2, kRegla3}},
        {u"amount without debt"_s, Con({}, u"5"_s, kEfectivo), {}},
        {u"no way of payment"_s, Con(u"100"_s, u"100"_s, {}), {kRegla3}},
        {u"cheque without bank"_s, Con(u"1"_s, u"1"_s, Cheque({}, {})), {kRegla4}},
        {u"bank XX"_s, Con(u"1"_s, u"1"_s, Cheque(u"XX"_s, u"5"_s)), {kRegla4}},
        {u"no bank, zero number"_s, Con(u"1"_s, u"1"_s, Cheque({}, u"0"_s)), {kRegla4, kRegla6}},
        {u"cheque without number"_s, Con(u"1"_s, u"1"_s, Cheque(u"02"_s, {})), {kRegla5}},
        {u"number 000"_s, Con(u"1"_s, u"1"_s, Cheque(u"02"_s, u"000"_s)), {kRegla6}},
        {u"number of letters"_s, Con(u"1"_s, u"1"_s, Cheque(u"02"_s, u"A00"_s)), {}},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(Inconsistencias(caso.declaracion), caso.lineas) << caso.nombre.toStdString();
}

TEST(Consistency, WarnsOfPayingMoreOrLess) {
    const auto aviso = [](const QString& c401, const QString& c410) {
        const auto mensaje = AvisoDeImporte(Con(c401, c410, kEfectivo));
        return mensaje ? mensaje->texto : QString();
    };
    EXPECT_EQ(aviso(u"100"_s, u"101"_s), u"El importe a pagar es mayor que el saldo definitivo a pagar."
                                         " Se le generará un pago en exceso de Percepciones"_s);
    EXPECT_EQ(aviso(u"100"_s, u"99"_s), u"El importe a pagar es menor que el saldo definitivo a pagar en Percepciones"
                                        ". La ZOLMA emitirá una Orden de Pago"_s);
    EXPECT_TRUE(aviso(u"100"_s, u"100"_s).isEmpty());
    EXPECT_TRUE(aviso({}, u"50"_s).isEmpty()); // no debt shown, nothing to compare with
    EXPECT_TRUE(aviso(u"100"_s, {}).isEmpty());
}

TEST(Consistency, TheFileHoldsOnlyTheLastValidation) {
    const QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"Mens.txt"_s);
    EscribeMens(ruta, {kRegla3, kRegla4});
    EscribeMens(ruta, {kRegla5});
    QFile archivo(ruta);
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(archivo.readAll()), kRegla5 + u'\n');
    EXPECT_THROW(EscribeMens(carpeta.filePath(u"no/Mens.txt"_s), {}), Error);
}

} // namespace
