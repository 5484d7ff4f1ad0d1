#include "family/OfferedDeclarants.h"

#include "support/BaseFixture.h"

namespace {

using OfferedDeclarantsTest = BaseDePrueba;

TEST_F(OfferedDeclarantsTest, AreAllOrOnesOwnAndOfAnyLengthByDefault) {
    m_base->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFA','0')"_s);
    m_base->Ejecuta(u"INSERT INTO CONT VALUES (6,'20555123451','B','AUX',1), (6,'20123456','A','AUX',2), "
                    "(6,'20444123450','C','O''X',2), (1,'10101010','D','AUX',2)"_s);
    const auto elegibles = [this](const QString& formulario, const QString& usuario) {
        const ConsultaSql consulta = SqlDeclarantes(*m_base, {formulario, usuario});
        return Lista(u"SELECT Doc_id_d FROM ("_s + consulta.texto + u") AS q"_s,
                     {consulta.valores.begin(), consulta.valores.end()});
    };
    // With no row of the RUC the default row sets no length.
    EXPECT_EQ(elegibles(u"0518"_s, u"JEFA"_s), u"20123456|20444123450|20555123451"_s);
    EXPECT_EQ(elegibles(u"0518"_s, u"AUX"_s), u"20123456|20555123451"_s);
    EXPECT_EQ(elegibles(u"0518"_s, u"O'X"_s), u"20444123450"_s);
    EXPECT_EQ(elegibles(u"0275"_s, u"JEFA"_s), u"20123456|20444123450"_s);
    m_base.Param(u"044"_s, u"6"_s, Funcion({{32, u"RUC"_s}, {46, u"11"_s}, {128, u"5 1"_s}}));
    EXPECT_EQ(elegibles(u"0518"_s, u"AUX"_s), u"20555123451"_s);
    EXPECT_EQ(elegibles(u"0275"_s, u"JEFA"_s), u"20444123450"_s);
}

} // namespace
