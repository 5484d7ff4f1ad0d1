#include "form518/WorkAdditions.h"

#include "data/Transaction.h"
#include "support/BaseFixture.h"

namespace {

std::string ClaveDe(QStringView texto, QStringView otro = {}) {
    std::string clave;
    AgregaAClave(clave, texto);
    AgregaAClave(clave, otro);
    return clave;
}

TEST(KeyMemory, FindsEachOfManyKeysAndItsNumber) {
    constexpr quint32 kMuchas = 100'000; // several blocks, and the table grows seven times
    MemoriaDeClaves memoria;
    for (quint32 i = 0; i < kMuchas; ++i)
        memoria.PonNumero(memoria.Pon(std::to_string(i) + std::string(i % 40, 'x')), i);
    for (quint32 i = 0; i < kMuchas; ++i) {
        const std::string clave = std::to_string(i) + std::string(i % 40, 'x');
        const MemoriaDeClaves::Lugar lugar = memoria.Busca(clave);
        ASSERT_NE(lugar, MemoriaDeClaves::kNinguno) << clave;
        ASSERT_EQ(memoria.Numero(lugar), i);
        ASSERT_EQ(memoria.Pon(clave), lugar);
        ASSERT_EQ(memoria.Busca(clave + '.'), MemoriaDeClaves::kNinguno);
    }
    EXPECT_NE(ClaveDe(u"ab", u"c"), ClaveDe(u"a", u"bc"));
}

class WorkAdditionsTest : public BaseDePrueba {
  protected:
    [[nodiscard]] static ClaveComprobante Comprobante(const QString& numero, const QString& serie = u"B001"_s) {
        return {.cliente = {.tipoDoc = CodigoDocumento(6), .numero = u"20X"_s}, .serie = serie, .numero = numero};
    }
    void Agrega(const ClaveComprobante& clave, qint64 linea) {
        m_altas.Agrega(clave, {{}, u"1"_s, u"9"_s, u"15/10/2026"_s, MontoEscrito(u"7.00"_s), {}, u"1"_s}, linea);
    }
    AltasTrabajo m_altas{*m_base};
};

/// In the tables the engine compares; what is in memory must be found as there.
TEST_F(WorkAdditionsTest, ComparesTextsAsTheTablesDo) {
    const QStringList textos = {u"B001"_s, u"b001"_s,  u"Ñ"_s,    u"ñ"_s,     u"É"_s, u"é"_s,      u""_s,
                                u" "_s,    u"B001 "_s, u"[z"_s,   u"{Z"_s,    u"İ"_s, u"ß"_s,      u"😀a"_s,
                                u"😀A"_s,   u"a\0b"_s,  u"A\0c"_s, u"a\0bb"_s, u"a"_s, u"\uFEFFa"_s};
    for (const QString& uno : textos) {
        for (const QString& otro : textos) {
            Registros fila = m_base->Lee(u"SELECT ? = ? COLLATE NOCASE"_s, {uno, otro});
            ASSERT_TRUE(fila.Siguiente());
            EXPECT_EQ(ClaveDe(uno) == ClaveDe(otro), fila.Entero(0) == 1) << qPrintable(uno) << '/' << qPrintable(otro);
        }
    }
}

TEST_F(WorkAdditionsTest, WhatIsAddedCountsAsStoredAndWhatOthersStoreIsReadAgain) {
    Base& otra = *m_base; // the fixture's own connection
    const auto propia = Base::Abre(m_base.Ruta());
    AltasTrabajo altas(*propia);
    const ClaveComprobante clave = Comprobante(u"1"_s);
    const ClavePago pago{.comprobante = clave, .tipo = u"01"_s, .serie = u"f001"_s, .numero = u"1"_s};
    altas.Empieza();
    EXPECT_FALSE(altas.Existe(clave));
    altas.Agrega({pago, u"15/10/2026"_s, MontoEscrito(u"5"_s)}, 1);
    EXPECT_TRUE(altas.Existe(pago));
    EXPECT_FALSE(altas.Existe(clave)); // a payment alone is no voucher
    EXPECT_FALSE(altas.Existe(clave.cliente));
    otra.Ejecuta(u"INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp, fec_emision_cp, "
                 "mto_base_p) VALUES (6, '20x', 'b001', '1', '', '01/10/2026', '9.0')"_s);
    altas.Empieza();
    ASSERT_TRUE(altas.BuscaCobro(clave));
    EXPECT_EQ(altas.BuscaCobro(clave)->fecha + u' ' + altas.BuscaCobro(clave)->base.Texto(), u"01/10/2026 9.0"_s);
    EXPECT_FALSE(altas.Existe(clave.cliente));
    EXPECT_FALSE(altas.Existe(Comprobante(u"1"_s, u"B002"_s)));
}

TEST_F(WorkAdditionsTest, TellsTheLinesOfRowsThatMeetAnother) {
    const Transaccion transaccion = m_base->Comienza();
    m_altas.Empieza();
    for (const int linea : {11, 12, 13})
        Agrega(Comprobante(QString::number(linea)), linea);
    m_base->Ejecuta(u"INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp) "
                    "VALUES (6, '20x', 'b001', '12', '')"_s);
    EXPECT_EQ(m_altas.Escribe(), QList<qint64>{12});
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET ORDER BY "_s + m_base->NumeroDeFila(u"TMPF518PDET"_s)),
              u"12|11|13"_s);
    EXPECT_EQ(m_altas.Escribe(), QList<qint64>()); // nothing is written twice
}

} // namespace
