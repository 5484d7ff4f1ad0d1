#include "declaration/FormFixture.h"

#include <QRadioButton>
#include <QTabWidget>

namespace {

/// The copy's number is 3, and its month 10/2026.
const QString kOferta =
    u"El período 10/2026 de este declarante ya fue enviado (copia 3, enviada el 02/11/2026).\n\n¿Desea "
    "traer sus clientes, comprobantes y casillas para rectificarlo?"_s;

class RectificationTest : public ConFormulario {
  protected:
    void SetUp() override {
        ConFormulario::SetUp();
        GrabaUna();
        AbreEnviada();
        m_base->Ejecuta(u"DELETE * FROM CAB"_s); // as the sending does
        for (const QString& tabla : kTablas)
            m_base->Ejecuta(u"DELETE * FROM "_s + tabla);
        m_dialogos.abreCambios = [this](Forma& /*sobre*/, const PedidoDeComparacion& pedido) { m_comparado = pedido; };
    }
    [[nodiscard]] QString Detalle() {
        return m_base.Filas(u"SELECT num_doc_per, mto_imp_p FROM TMPF518PCAB"_s).join(u' ');
    }

    std::optional<PedidoDeComparacion> m_comparado;
};

TEST_F(RectificationTest, BringsWhatWasSentOnceItIsWanted) {
    AbreNueva();
    EXPECT_FALSE(Control<QPushButton>(u"CmdCambios"_s).isVisible());
    Identifica();
    m_avisos.EsperaPregunta(kOferta, Respuesta::Si);
    VaAPestania(2);
    EsperaTrabajos();
    m_avisos.Comprueba();
    VaAPestania(2); // the click that left the period may have come to nothing while the rows were brought
    EXPECT_EQ(Detalle(), u"20500000007|1000.00"_s);
    EXPECT_EQ(Texto(u"TxtValor_401"_s) + u' ' + Texto(u"TxtValor_410"_s), u"1,000 1,000"_s);
    EXPECT_TRUE(Control<QRadioButton>(u"OptEfectivo"_s).isChecked());
    EXPECT_TRUE(Control<QRadioButton>(u"OptRectifica_1"_s).isChecked()) << "and nobody is reminded to type it all";
    EXPECT_FALSE(Control<>(u"MkePeriodo"_s).isEnabled()) << "the rows are of that key";
    Teclea(u"TxtValor_410"_s, u"9"_s);
    Pulsa(u"CmdCambios"_s);
    ASSERT_TRUE(m_comparado && m_comparado->abierta);
    EXPECT_EQ(m_comparado->copia.clave.correl + u' ' + m_comparado->nombre, u"3 COMERCIAL DEL VALLE S.A.C."_s);
    EXPECT_EQ(m_comparado->abierta->value(401) + u' ' + m_comparado->abierta->value(871), u"1,000 1"_s);
    m_avisos.Espera(u"El importe a pagar es mayor que el saldo definitivo a pagar. Se le generará un pago en exceso de"
                    " Percepciones"_s);
    m_avisos.Espera(kLimpia);
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT rectifica, estado FROM CAB"_s), QStringList{u"1|0"_s});
    EXPECT_EQ(m_base.Filas(u"SELECT num_doc_per FROM F518PCAB"_s), QStringList{u"20500000007"_s});
}

TEST_F(RectificationTest, WhatIsNotWantedStartsEmptyAndASecondOriginalIsAskedAbout) {
    AbreNueva();
    Identifica();
    m_avisos.EsperaPregunta(kOferta, Respuesta::No);
    VaAPestania(2);
    VaAPestania(0);
    VaAPestania(1); // asked once
    EXPECT_EQ(Detalle(), QString());
    EXPECT_TRUE(Control<QPushButton>(u"CmdCambios"_s).isVisible());
    Paga(u"0"_s);
    const QString otro =
        u"El período 10/2026 ya fue enviado (copia 3, enviada el 02/11/2026), y esta declaración no dice "
        "que rectifique o sustituya a otra. Si la graba así, queda como otro original del mismo "
        "período.\n\n¿Desea grabarla así?"_s;
    m_avisos.EsperaPregunta(otro, Respuesta::No);
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), 0) << "where the answer about rectifying is given";
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM CAB"_s), QStringList{u"0"_s});
    m_avisos.EsperaPregunta(kModificado, Respuesta::Si);
    m_avisos.EsperaPregunta(otro, Respuesta::No);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_TRUE(m_forma->isVisible()) << "it isn't about leaving";
    m_avisos.EsperaPregunta(otro, Respuesta::Si);
    m_avisos.Espera(kLimpia);
    Pulsa(u"CmdGrabar"_s);
    m_avisos.Espera(kLimpia); // once is enough
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT rectifica FROM CAB"_s), QStringList{u""_s});
}

TEST_F(RectificationTest, ACopyThatWasChosenElsewhereGoesBeforeTheLastOne) {
    const ClaveDeclaracion copia{.ruc = Ruc(kRucDeclarante),
                                 .periodo = Periodo(2026, 10),
                                 .formulario = kNumFormulario,
                                 .enviada = true,
                                 .correl = u"3"_s};
    m_base.Agrega(u"HCAB"_s, {{u"Doc_id_d"_s, kRucDeclarante}, {u"periodo"_s, u"202610"_s}, {u"correl"_s, u"4"_s}});
    AbreNueva();
    m_avisos.EsperaPregunta(kOferta, Respuesta::Si);
    m_forma->Rectifica(copia);
    EsperaTrabajos();
    EXPECT_EQ(Texto(u"TxtRazon"_s) + Texto(u"MkePeriodo"_s), u"COMERCIAL DEL VALLE S.A.C.10/2026"_s);
    EXPECT_EQ(Detalle(), u"20500000007|1000.00"_s);

    m_base->Ejecuta(u"UPDATE CONT SET Usuario = 'EVA'"_s);
    AbreNueva();
    m_avisos.Espera(u"El declarante 20990518018 no está entre los suyos: no puede rectificar su declaración."_s);
    m_forma->Rectifica(copia);
}

} // namespace
