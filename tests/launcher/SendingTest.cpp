#include "launcher/Sending.h"
#include "data/RecordChecksum.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;
using prueba::kTablas;

namespace {

const QString kRuc = u"20990518018"_s;

class Sending : public testing::Test {
  protected:
    /// One row in every table; its texts are the columns' own names, so that a swap would show.
    void Graba(const QString& periodo) {
        for (const QString& tabla : kTablas) {
            const Tabla& forma = base->Describe(tabla);
            Registro fila(forma);
            for (int i = 0; i < forma.columnas.size(); ++i)
                fila.Pon(i, forma.columnas[i].entera ? QVariant(6) : QVariant(forma.columnas[i].nombre));
            fila.Pon(u"Doc_id_d", kRuc).Pon(u"periodo", periodo).Pon(u"Formulario", kNumFormulario);
            if (tabla == u"CAB")
                fila.Pon(u"estado", 0).Pon(u"bcolibrad", QVariant());
            if (tabla == u"F518PDETCP")
                fila.Pon(u"mto_detcp", u"7.50"_s);
            AgregaConChecksum(*base, fila);
        }
    }

    ResultadoEnvio Envia(const QString& periodo) {
        return Envio(*base, reloj).Envia({kRuc, periodo, kNumFormulario, false, {}});
    }

    QString Valor(const QString& sql) const { return base.Filas(sql).value(0); }
    int Cuenta(const QString& tabla) const { return Valor(u"SELECT count(*) FROM "_s + tabla).toInt(); }

    /// What a row's checksum should be by the row as it now stands in the base.
    QString ChecksumDe(const QString& tabla, const QString& correl) {
        Registros leida = base->Lee(u"SELECT * FROM "_s + tabla + u" WHERE correl = ?"_s, {correl});
        EXPECT_TRUE(leida.Siguiente());
        Registro fila(base->Describe(tabla));
        for (int i = 0; i < leida.Columnas(); ++i)
            fila.Pon(i, leida.Valor(i));
        return ChecksumRegistro(fila, PrimerosDe(tabla));
    }

    prueba::BaseTemporal base;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
};

} // namespace

TEST_F(Sending, MovesEveryRowOfThatDeclarationAndStampsIt) {
    Graba(u"202609"_s);
    Graba(u"202610"_s);
    const ResultadoEnvio resultado = Envia(u"202609"_s);
    ASSERT_TRUE(resultado.veredicto);
    EXPECT_EQ(resultado.correl, u"1"_s);
    for (const QString& tabla : kTablas) {
        EXPECT_EQ(Valor(u"SELECT group_concat(periodo) FROM "_s + tabla), u"202610"_s);
        EXPECT_EQ(Valor(u"SELECT group_concat(periodo) FROM H"_s + tabla), u"202609"_s);
        EXPECT_EQ(Valor(u"SELECT cNumero FROM H"_s + tabla), ChecksumDe(u'H' + tabla, u"1"_s));
    }
    EXPECT_EQ(Valor(u"SELECT estado & '|' & norden & '|' & fec_env & '|' & control & '|' & correl & '|' & fec_pro"
                    " FROM HCAB WHERE bcolibrad IS NULL"_s),
              u"1|0|21/11/2026|"_s + resultado.control + u"|1|fec_pro"_s);
}

// The deletion of a sent declaration leaves its cash-sale rows, wanted so.
TEST_F(Sending, NumbersOfADeletedCopyAreNotGivenAgain) {
    Graba(u"202609"_s);
    const ResultadoEnvio borrada = Envia(u"202609"_s);
    for (const QString& tabla : {u"HDET"_s, u"HCAB"_s, u"HF518PDETCP"_s, u"HF518PDET"_s, u"HF518PCAB"_s})
        base->Ejecuta(u"DELETE * FROM "_s + tabla);
    Graba(u"202609"_s);
    const ResultadoEnvio nueva = Envia(u"202609"_s);
    ASSERT_TRUE(nueva.veredicto);
    EXPECT_EQ(nueva.correl, u"2"_s);
    EXPECT_GT(nueva.control, borrada.control);
}

// The last row of the last table can't be summed: all that was moved before it must come back.
TEST_F(Sending, AFailureHalfWayLeavesTheDeclarationRegistered) {
    Graba(u"202609"_s);
    base->Ejecuta(u"UPDATE F518PDETCP SET mto_detcp = ?"_s, {QString(400, u'z')});
    EXPECT_THROW((void)Envia(u"202609"_s), Desbordamiento);
    for (const QString& tabla : kTablas)
        EXPECT_EQ(std::pair(Cuenta(tabla), Cuenta(u'H' + tabla)), std::pair(1, 0)) << qPrintable(tabla);
    EXPECT_EQ(Cuenta(u"PARAM"_s), 0);
}
