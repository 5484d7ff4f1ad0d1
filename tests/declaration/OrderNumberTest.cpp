#include "declaration/OrderNumber.h"

#include "support/TemporaryBase.h"

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

TEST(OrderNumber, WritesOnlyTheNumberAndTheChecksumOfThatCopy) {
    const prueba::BaseTemporal base;
    base->Ejecuta(u"INSERT INTO ERROR VALUES ('0151','Número registrado')"_s);
    for (const QString& correl : {u"1"_s, u"2"_s})
        base.Agrega(u"HCAB"_s, {{u"Doc_id_d"_s, u"20100000009"_s},
                                {u"periodo"_s, u"202609"_s},
                                {u"correl"_s, correl},
                                {u"norden"_s, u"0"_s},
                                {u"cNumero"_s, u"000000"_s}});
    const ClaveDeclaracion clave{u"20100000009"_s, u"202609"_s, kNumFormulario, true, u"2"_s};
    EXPECT_EQ(RegistraNumeroDeOrden(*base, clave, u"12345678"_s).texto, u"Número registrado"_s);
    const QStringList filas = base.Filas(u"SELECT correl, norden, cNumero <> '000000' FROM HCAB ORDER BY correl"_s);
    EXPECT_EQ(filas, (QStringList{u"1|0|0"_s, u"2|12345678|1"_s}));

    const ClaveDeclaracion ninguna{u"20100000009"_s, u"202608"_s, kNumFormulario, true, u"1"_s};
    EXPECT_EQ(RegistraNumeroDeOrden(*base, ninguna, u"87654321"_s).texto, u"Número registrado"_s);
    EXPECT_TRUE(base.Filas(u"SELECT * FROM HCAB WHERE norden='87654321'"_s).isEmpty());
}

} // namespace
