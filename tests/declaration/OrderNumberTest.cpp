#include "declaration/OrderNumber.h"

#include "data/CheckDigits.h"
#include "support/TemporaryBase.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

TEST(OrderNumber, EachFaultHasTwoWordings) {
    const QString digitos = DigitosOrden(u"00000017"_s, u"12345678"_s);
    ASSERT_EQ(digitos.size(), 2);
    const NumeroDeOrden corto{u"00000017"_s, u"1234567"_s, digitos};
    const NumeroDeOrden ajeno{u"00000018"_s, u"12345678"_s, digitos};
    EXPECT_EQ(ValidaNumeroDeOrden(corto, MomentoOrden::Boton).mensaje->texto,
              u"     El número de orden no es válido"_s);
    EXPECT_EQ(ValidaNumeroDeOrden(corto, MomentoOrden::Cierre).mensaje->texto, u"El número de orden es incorrecto"_s);
    EXPECT_EQ(ValidaNumeroDeOrden(ajeno, MomentoOrden::Boton).mensaje->texto,
              u"     El digito Verificador es incorrecto"_s);
    EXPECT_EQ(ValidaNumeroDeOrden(ajeno, MomentoOrden::Cierre).mensaje->texto, u"Digito verificador incorrecto"_s);
    EXPECT_TRUE(ValidaNumeroDeOrden({u"00000017"_s, u"12345678"_s, digitos}, MomentoOrden::Boton));
}

TEST(OrderNumber, WritesOnlyTheNumberAndTheChecksumOfThatCopy) {
    const prueba::BaseTemporal base;
    base->Ejecuta(u"INSERT INTO ERROR VALUES ('0151','Número registrado')"_s);
    for (const QString& correl : {u"1"_s, u"2"_s})
        base->Ejecuta(u"INSERT INTO HCAB VALUES ('20100000009',6,'202609','0518','01/10/2026',' ',' ','','5',1,'0','0',"
                      "'02/10/2026','00000017',?,'000000')"_s,
                      {correl});
    const ClaveDeclaracion clave{u"20100000009"_s, u"202609"_s, kNumFormulario, true, u"2"_s};
    EXPECT_EQ(RegistraNumeroDeOrden(*base, clave, u"12345678"_s).texto, u"Número registrado"_s);
    const QStringList filas =
        base.Filas(u"SELECT correl, norden, cNumero <> '000000', efectivo FROM HCAB ORDER BY correl"_s);
    EXPECT_EQ(filas, (QStringList{u"1|0|0|5"_s, u"2|12345678|1|5"_s}));

    const ClaveDeclaracion ninguna{u"20100000009"_s, u"202608"_s, kNumFormulario, true, u"1"_s};
    EXPECT_EQ(RegistraNumeroDeOrden(*base, ninguna, u"87654321"_s).texto, u"Número registrado"_s);
    EXPECT_TRUE(base.Filas(u"SELECT * FROM HCAB WHERE norden='87654321'"_s).isEmpty());
}

} // namespace
