#include "detail/frmPerDet.h"

#include "detail/DetailFixture.h"

namespace {

const QString kGrabada = u"La información se grabó satisfactoriamente"_s;

class PaymentDialogTest : public DetailTest {
  protected:
    std::unique_ptr<frmPerDet> Abre(ModoDetalle modo, const ClavePago& clave = {}, const QString& fecha = {},
                                    const QString& monto = {}) {
        ComprobanteDePago pago{clave, fecha, MontoEscrito(monto)};
        pago.clave.comprobante = {{CodigoDocumento(6), kEmpresa}, u"P001"_s, u"00000001"_s, {}};
        auto forma = std::make_unique<frmPerDet>(m_entorno, modo, pago, u"1"_s);
        Muestra(*forma);
        return forma;
    }
    [[nodiscard]] QStringList Filas() const {
        return m_base.Filas(u"SELECT tip_doc_detcp, num_serie_detcp, num_detcp, fec_emis_detcp, mto_detcp "
                            "FROM TMPF518PDETCP ORDER BY "_s +
                            m_base->NumeroDeFila(u"TMPF518PDETCP"_s));
    }
};

TEST_F(PaymentDialogTest, RefusesInItsOrder) {
    const QString serie = u"TxtSerie"_s;
    const QString fecha = u"MkeFecEmis"_s;
    const QString monto = u"TxtMtoDet"_s;
    const QString aceptar = u"CmdOpciones_0"_s;
    const QString noValido = u"El número de serie del comprobante de pago no es válido"_s;
    const QString malaFecha = u"Debe ingresar una fecha válida."_s;
    const QString futura = u"La fecha de emisión del comprobante de pago no puede ser mayor a la fecha del sistema."_s;
    const QString letras = u"No se permite letras desde la segunda a la cuarta posición en el número de serie."_s;
    const QString faltaMonto = u"Ingrese el valor total del comprobante de pago"_s;
    const QString nada = u"Ingrese valor total del comprobante de pago mayor a cero."_s;
    const auto boleto = Abre(ModoDetalle::Nuevo);
    Sube(*boleto, aceptar,
         {{{}, {}, u"Ingrese el tipo de documento"_s, u"CmbTipoDoc"_s},
          {{}, u"12"_s, u"Ingrese la serie"_s, serie}, // the choice itself moves the focus on
          {{}, u"0\r"_s, u"Ingrese el número del documento"_s, u"TxtNumero"_s},
          {{}, u"0\r"_s, u"El número de comprobante de pago no puede ser cero."_s, u"TxtNumero"_s},
          {{}, u"\b7\r"_s, u"El número de serie no puede ser cero."_s, serie},
          {{}, u"\bA1\r\r"_s, u"Debe ingresar la fecha de emisión."_s, fecha}, // a ticket takes no letters
          {{}, u"3102202"_s, malaFecha, fecha},
          {{}, u"6"_s, malaFecha, fecha},
          {{},
           u"01112026"_s, // on the way out of the field: the button isn't pressed
           u"La fecha de emisión del comprobante de pago no es válido cuando es posterior al período 10/2026"_s,
           fecha},
          {{}, u"21102026"_s, futura + u'\n' + futura, aceptar}, // out of the field, and again at the button
          {fecha, u"20102026"_s, faltaMonto, monto},
          {{}, u"."_s, nada, monto},
          {{}, u"0"_s, nada, monto},
          {{}, u"\b\b\b\b0.00"_s, nada, monto}});
    Teclea(u"\b\b\b\b.01"_s);
    m_avisos.Espera({Icono::Informacion, kGrabada, boleto->windowTitle()});
    SinBase(*boleto, aceptar);
    Clic(*boleto, "CmdOpciones_0");
    EXPECT_EQ(Filas(), QStringList{u"12|0001|00000007|20/10/2026|.01"_s});

    const auto factura = Abre(ModoDetalle::Nuevo);
    Teclea(u"01A12\r5\r"_s);
    Sube(*factura, aceptar,
         {{fecha, u"10102026"_s, noValido, serie}, // padding leaves letters alone
          {fecha, u"18072010"_s, noValido, serie},
          {{}, u"B"_s, faltaMonto, monto}, // until that day letters may stand anywhere
          {fecha, u"19072010"_s, letras, serie, Icono::Exclamacion},
          {{}, u"\b3"_s, faltaMonto, monto}});
}

TEST_F(PaymentDialogTest, GoesOnWithTheNextAndStoresACreditNoteNegative) {
    const auto forma = Abre(ModoDetalle::Nuevo);
    const auto entra = [&](const QString& teclas, const QString& mensaje) {
        Teclea(teclas);
        m_avisos.Espera(mensaje);
        Teclea(u"\r"_s);
    };
    entra(u"07F001\r5\r10102026\r0.5\r"_s, kGrabada);
    EXPECT_EQ(De<QLineEdit>(*forma, "MkeFecEmis").displayText(), u"__/__/____"_s);
    EXPECT_EQ(Foco(), u"CmbTipoDoc"_s);
    entra(u"01F001\r5\r10102026\r123456789012.345\r"_s, kGrabada);
    entra(u"01f001\r5\r10102026\r1\r"_s, u"La información ya ha sido registrada"_s);
    EXPECT_EQ(De<QLineEdit>(*forma, "TxtSerie").text(), u"F001"_s); // nothing typed is lost
    m_avisos.EsperaPregunta(u"La información ha sido modificada. ¿Desea guardar los cambios?"_s, Respuesta::No);
    forma->close();
    EXPECT_EQ(Filas(),
              (QStringList{u"07|F001|00000005|10/10/2026|-.50"_s, u"01|F001|00000005|10/10/2026|123456789012.34"_s}));

    const auto modifica =
        Abre(ModoDetalle::Modificar, {{}, u"07"_s, u"F001"_s, u"00000005"_s}, u"10/10/2026"_s, u"-.50"_s);
    EXPECT_EQ(De<QLineEdit>(*modifica, "TxtMtoDet").text(), u"0.5"_s);
    EXPECT_EQ(Foco(), u"MkeFecEmis"_s);
    Teclea(u"11102026\r999999999999\r"_s); // eleven digits for a credit note
    m_avisos.Espera(kGrabada);
    Teclea(u"\r"_s);
    EXPECT_FALSE(modifica->isVisible());
    EXPECT_EQ(Filas().first(), u"07|F001|00000005|11/10/2026|-99999999999.00"_s);
}

TEST_F(PaymentDialogTest, ADateBefore2005IsAskedAboutEachTime) {
    const QString pregunta = u"La fecha del comprobante de pago es anterior al 01/01/2005. ¿Desea continuar?"_s;
    const auto forma = Abre(ModoDetalle::Nuevo);
    Teclea(u"01F001\r5\r01012005\r"_s);
    Pulsa(Qt::Key_Backtab);
    Teclea(u"31122004"_s);
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    Teclea(u"\r"_s);
    EXPECT_EQ(Foco(), u"MkeFecEmis"_s);
    m_avisos.EsperaPregunta(pregunta, Respuesta::Si);
    Teclea(u"\r"_s);
    EXPECT_EQ(Foco(), u"TxtMtoDet"_s);
    Teclea(u"10\r"_s);
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    Teclea(u"\r"_s);
    EXPECT_EQ(Foco(), u"MkeFecEmis"_s);
    // The way out asks about the date once more, as any leaving does, and closes though the save is refused.
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    m_avisos.EsperaPregunta(u"La información ha sido modificada. ¿Desea guardar los cambios?"_s, Respuesta::Si);
    m_avisos.EsperaPregunta(pregunta, Respuesta::No);
    Clic(*forma, "CmdOpciones_1");
    EXPECT_FALSE(forma->isVisible());
    EXPECT_TRUE(Filas().isEmpty());
}

} // namespace
