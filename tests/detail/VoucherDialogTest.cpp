#include "detail/FrmDetAgePer.h"

#include "detail/DetailFixture.h"

#include <QLabel>
#include <QRadioButton>

namespace {

const QString kFaltaPago = u"Ingrese al menos un comprobante de pago"_s;

class VoucherDialogTest : public DetailTest {
  protected:
    std::unique_ptr<FrmDetAgePer> Nuevo() {
        return Abre(ModoDetalle::Nuevo, {{{CodigoDocumento(6), kEmpresa}, {}, {}, {}}, {}});
    }
    /// The stored voucher P001-1, with its answers.
    std::unique_ptr<FrmDetAgePer> Modifica(const QString& contado = {}) {
        return Abre(ModoDetalle::Modificar, {{{CodigoDocumento(6), kEmpresa}, u"P001"_s, u"00000001"_s, contado},
                                             {u"1"_s, u"0"_s, u"0"_s, u"15/10/2026"_s, MontoEscrito(u"100.00"_s),
                                              Importe::Valor(u"9.99"), u"9"_s}});
    }
    void MeteComprobante(const QString& contado = {}) {
        m_base->Ejecuta(
            u"INSERT INTO TMPF518PDET VALUES (6,?,'P001','00000001',?,'1','0','0','15/10/2026','100.00','9.99','9')"_s,
            {kEmpresa, contado});
    }
    void MetePago(const QString& numero, const QString& tipo, const QString& delComprobante = u"00000001"_s,
                  const QString& serie = u"F001"_s, const QString& cliente = kEmpresa) {
        m_base->Ejecuta(u"INSERT INTO TMPF518PDETCP VALUES (6,?,'P001',?,?,?,?,'10/10/2026','118')"_s,
                        {cliente, delComprobante, tipo, serie, numero});
    }
    [[nodiscard]] static QString Texto(QWidget& forma, const char* campo) { return De<QLineEdit>(forma, campo).text(); }
    [[nodiscard]] QString Cuentas() const {
        return m_base.Filas(u"SELECT count(*) FROM TMPF518PDET"_s).first() + u' ' +
               m_base.Filas(u"SELECT count(*) FROM TMPF518PDETCP"_s).first();
    }

  private:
    std::unique_ptr<FrmDetAgePer> Abre(ModoDetalle modo, const Comprobante& comprobante) {
        auto forma = std::make_unique<FrmDetAgePer>(m_entorno, modo, comprobante);
        Muestra(*forma);
        return forma;
    }
};

TEST_F(VoucherDialogTest, RefusesInItsOrder) {
    const QString fecha = u"MkeFecEmis"_s;
    const QString monto = u"TxtMtoBase"_s;
    const QString malaFecha = u"Debe ingresar una fecha válida."_s;
    const QString futura = u"La fecha del comprobante de percepción no puede ser mayor a la fecha del sistema."_s;
    const auto comunes = [&](const QString& boton) {
        return QList<Paso>{
            {{}, u"A1\r"_s, u"Ingrese el número del documento"_s, u"TxtNumero"_s},
            {{}, u"0\r"_s, u"El número de comprobante de percepción no puede ser cero"_s, u"TxtNumero"_s},
            {{}, u"\b1\r"_s, u"El número de serie debe ser numérico"_s, u"TxtSerie"_s},
            {{}, u"\b\b1\r\r"_s, u"Debe ingresar la fecha de emisión."_s, fecha},
            {{}, u"1510202"_s, malaFecha, fecha},
            // These two are said on the way out of the field: the button isn't pressed.
            {{},
             u"6\b\b\b\b\b\b112026"_s,
             u"La fecha del comprobante de percepción no es válida cuando es posterior al período 10/2026"_s,
             fecha},
            {{}, u"30092026"_s, u"La fecha del comprobante de percepción no puede ser anterior al 01/10/2026"_s, fecha},
            {{}, u"21102026"_s, futura + u'\n' + futura, boton}, // and this one again at the button, the focus let go
            {fecha, u"32102026"_s, futura + u'\n' + malaFecha, fecha},
            {{}, u"20102026"_s, u"Ingrese el Monto cobrado"_s, monto},
            {{}, u"."_s, u"Ingrese el Monto cobrado"_s, monto},
            {{}, u"5"_s, u"Conteste si su cliente figura en el listado publicado por ZOLMA"_s, u"OptListado_0"_s}};
    };
    for (const QString& boton : {u"CmdOpciones_0"_s, u"CmdOpciones1_0"_s}) {
        const auto ordinario = Nuevo();
        Sube(*ordinario, boton, {{{}, {}, u"Ingrese la serie"_s, u"TxtSerie"_s}});
        Sube(*ordinario, boton, comunes(boton));
        if (boton == u"CmdOpciones_0"_s)
            Sube(*ordinario, boton, {{{}, u"n"_s, kFaltaPago, boton}});
        EXPECT_EQ(Texto(*ordinario, "TxtSerie"), u"0001"_s);
    }
    const auto contado = Nuevo();
    Teclea(u"s"_s);
    Sube(*contado, u"CmdOpciones_0"_s,
         {{{}, {}, u"Ingrese el tipo de comprobante de pago"_s, u"CmbTipoCP"_s},
          {{}, u"03"_s, u"Ingrese la serie"_s, u"TxtSerie"_s}});
    Sube(*contado, u"CmdOpciones_0"_s, comunes(u"CmdOpciones_0"_s));
}

TEST_F(VoucherDialogTest, KnowsTheKeyOfAStoredVoucher) {
    const QString ya = u"La información ya ha sido registrada"_s;
    const QString teclas = u"P001\r1\r15102026\r5\r"_s;
    MeteComprobante();
    MeteComprobante(u"03"_s);
    const auto ordinario = Nuevo();
    Teclea(u'\r' + teclas);
    Clic(*ordinario, "OptListado_0");
    Sube(*ordinario, u"CmdOpciones1_0"_s, {{{}, {}, ya, u"CmdOpciones1_0"_s}});
    const auto contado = Nuevo();
    Teclea(u"s\r03"_s + teclas);
    Clic(*contado, "OptListado_0");
    Sube(*contado, u"CmdOpciones_0"_s, {{{}, {}, ya, u"CmdOpciones_0"_s}});
    EXPECT_EQ(Cuentas(), u"2 0"_s);
}

/// After each click: which of the later questions are live (uppercase) and answered.
TEST_F(VoucherDialogTest, AnswersChangeTheOtherQuestionsByPeriod) {
    const struct {
        QString periodo;
        QStringList clics;
        QString queda; // list, zone, means
    } casos[] = {
        {u"200802"_s, {}, u"L z M"_s}, // the last one is never shown
        {u"200802"_s, {u"OptCpFact_0"_s, u"OptListado_1"_s}, u"L1 z m"_s},
        {u"200803"_s, {u"OptListado_1"_s, u"OptVenta_1"_s, u"OptCpFact_0"_s}, u"L1 Z1 m"_s},
        {u"202610"_s, {u"OptListado_1"_s, u"OptCpFact_0"_s}, u"l Z m"_s}, // band C: no list without credit
        {u"202610"_s, {u"OptCpFact_0"_s, u"OptCpFact_1"_s, u"OptVenta_0"_s}, u"L Z0 m"_s},
        {u"202610"_s, {u"OptVenta_0"_s, u"OptCpFact_1"_s}, u"L Z0 M"_s},
    };
    for (const auto& caso : casos) {
        m_entorno.declarado = *Periodo::DeTabla(caso.periodo);
        m_entorno.primerIgv = Periodo(2010, 12);
        const auto forma = Nuevo();
        for (const QString& opcion : caso.clics)
            Clic(*forma, opcion);
        QStringList queda;
        for (const auto& [letra, nombre] :
             {std::pair{u"L"_s, u"OptListado"_s}, {u"Z"_s, u"OptVenta"_s}, {u"M"_s, u"OptMedPago"_s}}) {
            const auto& no = De<QRadioButton>(*forma, nombre + u"_0"_s);
            const auto& si = De<QRadioButton>(*forma, nombre + u"_1"_s);
            const bool activa = no.isEnabledTo(no.parentWidget());
            queda += (activa ? letra : letra.toLower()) + (si.isChecked() ? u"1"_s : no.isChecked() ? u"0"_s : u""_s);
        }
        EXPECT_EQ(queda.join(u' '), caso.queda) << caso.periodo.toStdString();
        EXPECT_FALSE(De(*forma, "FraMedPago").isVisible());
    }
}

TEST_F(VoucherDialogTest, AmountsFollowTheAnswersAndTheDate) {
    const auto forma = Nuevo();
    const auto muestra = [&] {
        return Texto(*forma, "TxtTasa") + u' ' + Texto(*forma, "TxtPercepcion") + u' ' + Texto(*forma, "TxtFactor");
    };
    Teclea(u"\r1\r1\r"_s);
    Teclea(u"15102026\r100.255"_s);
    EXPECT_EQ(muestra(), u"0 0.00 0.00"_s);
    Clic(*forma, "OptCpFact_1");
    EXPECT_EQ(Texto(*forma, "TxtMtoBase"), u"100.26"_s);
    Clic(*forma, "OptVenta_0");
    EXPECT_EQ(muestra(), u"2.00 2.01 2.00"_s);
    Clic(*forma, "OptListado_1");
    EXPECT_EQ(muestra(), u"1.00 1.00 1.00"_s);
    auto& monto = De<QLineEdit>(*forma, "TxtMtoBase");
    monto.setFocus();
    monto.selectAll();
    Teclea(u"9999999999999.999"_s); // twelve digits, fifteen characters with a point
    EXPECT_EQ(monto.text(), u"999999999999.99"_s);
    monto.setText(u"1000000000000"_s);
    EXPECT_EQ(monto.text(), u"999999999999.99"_s);
    monto.clear();
    EXPECT_EQ(Texto(*forma, "TxtPercepcion"), u" "_s);
}

TEST_F(VoucherDialogTest, TheTypeOfACashSaleAnswersForTheCredit) {
    for (const auto& [tipo, credito] : {std::pair{u"01"_s, u"1"_s}, {u"03"_s, u"0"_s}, {u"12"_s, u"?"_s}}) {
        const auto forma = Nuevo();
        Teclea(u"s\r"_s + tipo);
        EXPECT_EQ(Foco(), u"TxtSerie"_s);
        EXPECT_FALSE(De(*forma, "CmdOpciones1_0").isEnabled());
        const bool libre = De(*forma, "OptCpFact_0").isEnabled();
        const bool si = De<QRadioButton>(*forma, "OptCpFact_1").isChecked();
        EXPECT_EQ(libre ? u"?"_s : si ? u"1"_s : u"0"_s, credito) << tipo.toStdString();
    }
    const auto forma = Nuevo();
    Teclea(u"s\r99A-1\r123456789\r15102026\r50\r"_s); // no letters with this type, and a long number
    Clic(*forma, "OptListado_0");
    Clic(*forma, "OptVenta_0");
    Clic(*forma, "CmdOpciones_0");
    EXPECT_FALSE(forma->isVisible());
    EXPECT_EQ(m_base.Filas(u"SELECT * FROM TMPF518PDET"_s),
              QStringList{u"6|20500000008|0001|123456789|99|0|0|0|15/10/2026|50.00|1.00|2.00"_s});
}

TEST_F(VoucherDialogTest, AStoredVoucherShowsNoRateUntilItsDateIsLeft) {
    MeteComprobante();
    MetePago(u"1"_s, u"07"_s);
    const auto forma = Modifica();
    EXPECT_EQ(Texto(*forma, "TxtTasa") + u' ' + Texto(*forma, "TxtPercepcion"), u"0 9.99"_s);
    EXPECT_EQ(Foco(), u"MkeFecEmis"_s);
    EXPECT_FALSE(De(*forma, "OptVenta_0").isEnabled() || De(*forma, "OptListado_0").isEnabled());
    m_avisos.Espera({Icono::Informacion, u"Debe ingresar algún comprobante de pago diferente a nota de crédito."_s,
                     forma->windowTitle()}); // after the save
    Clic(*forma, "CmdOpciones_0");
    EXPECT_EQ(m_base.Filas(u"SELECT mto_imp_p, por_tasa_p FROM TMPF518PDET"_s), QStringList{u"2.00|2.00"_s});
    EXPECT_FALSE(forma->isVisible());
}

TEST_F(VoucherDialogTest, AStoredCashSaleKeepsItsKind) {
    MeteComprobante();
    MeteComprobante(u"03"_s);
    const auto forma = Modifica(u"03"_s);
    EXPECT_TRUE(De<QRadioButton>(*forma, "OptVentaCont_1").isChecked());
    for (const char* campo : {"OptVentaCont_0", "CmbTipoCP", "TxtSerie", "OptCpFact_0", "GrdDetPer", "CmdOpciones1_0"})
        EXPECT_FALSE(De(*forma, campo).isEnabled()) << campo;
    Teclea(u"16102026\r300\r"_s);
    SinBase(*forma, u"CmdOpciones_0"_s);
    Clic(*forma, "CmdOpciones_0");
    EXPECT_EQ(m_base.Filas(u"SELECT tip_cp, fec_emision_cp, mto_base_p, mto_imp_p, por_tasa_p FROM TMPF518PDET"_s),
              (QStringList{u"|15/10/2026|100.00|9.99|9"_s, u"03|16/10/2026|300.00|6.00|2.00"_s}));
}

/// Each of the others differs from it in one column of the key.
TEST_F(VoucherDialogTest, DeletesThatPaymentVoucherAlone) {
    const QString uno = u"00000001"_s;
    MeteComprobante();
    MetePago(u"7"_s, u"01"_s);
    MetePago(u"8"_s, u"01"_s);
    MetePago(u"7"_s, u"03"_s);
    MetePago(u"7"_s, u"01"_s, uno, u"F002"_s);
    MetePago(u"7"_s, u"01"_s, u"00000002"_s);
    MetePago(u"7"_s, u"01"_s, uno, u"F001"_s, u"20991000004"_s);
    const auto forma = Modifica();
    const QString pregunta = u"¿Confirma que va a eliminar la información?"_s;
    for (const Respuesta respuesta : {Respuesta::No, Respuesta::Si}) {
        m_avisos.EsperaPregunta(pregunta, respuesta);
        Clic(*forma, "CmdOpciones1_2");
        EXPECT_EQ(m_avisos.Mostrados().last().preseleccionada, Respuesta::No);
        EXPECT_EQ(Cuentas(), respuesta == Respuesta::No ? u"1 6"_s : u"1 5"_s);
    }
    EXPECT_TRUE(
        m_base
            .Filas(u"SELECT 1 FROM TMPF518PDETCP WHERE num_doc_per='"_s + kEmpresa +
                   u"' AND num_cp='00000001' AND tip_doc_detcp='01' AND num_serie_detcp='F001' AND num_detcp='7'"_s)
            .isEmpty());
    EXPECT_EQ(De<QLabel>(*forma, "lblNumTrab").text().right(1), u"3"_s);
}

TEST_F(VoucherDialogTest, AVoucherWithoutAnAnswerAboutCreditIsStoredWithoutRate) {
    MetePago(u"1"_s, u"01"_s);
    const auto forma = Nuevo();
    Teclea(u"\rP001\r1\r15102026\r100\r"_s);
    Clic(*forma, "OptListado_0");
    AlAbrir(u"frmPerDet"_s, [](QWidget&) {}); // closed with nothing entered
    Clic(*forma, "CmdOpciones1_0");
    Muestra(*forma);
    EXPECT_FALSE(De(*forma, "OptVentaCont_1").isEnabled());
    EXPECT_TRUE(De(*forma, "TxtSerie").isEnabled());
    Clic(*forma, "CmdOpciones_0");
    EXPECT_EQ(m_base.Filas(u"SELECT cp_fact, lista_clie, med_pago, mto_imp_p, por_tasa_p FROM TMPF518PDET"_s),
              QStringList{u"<null>|0|9|0.00|0"_s});
}

TEST_F(VoucherDialogTest, SweepsWhatItLeavesBehind) {
    struct Caso {
        const char* nombre;
        QString modo, contado;
        bool registrado, conPago;
        QStringList preguntas; // each answered with its last letter
        bool cierra;
        QString quedan; // vouchers and payment vouchers; one of each belongs to others
    };
    const QString sin = kSinComprobantes;
    const QList<Caso> casos = {
        {"the same, refused", u"0"_s, {}, false, true, {kGuardar + u'S'}, true, u"0 1"_s},
        {"an empty one", u"0"_s, {}, false, false, {sin + u'S'}, true, u"0 1"_s},
        {"an empty one, to stay", u"0"_s, {}, false, false, {sin + u'N'}, false, u"0 1"_s},
        {"the key of another, with payments", u"0"_s, {}, true, true, {kGuardar + u'N'}, true, u"1 2"_s},
        {"a stored one emptied", u"1"_s, {}, true, false, {sin + u'S'}, true, u"0 1"_s},
        {"a stored one", u"1"_s, {}, true, true, {kGuardar + u'N'}, true, u"1 2"_s},
        {"a cash sale, refused", u"0"_s, u"03"_s, false, true, {kGuardar + u'S'}, true, u"0 2"_s},
        {"a cash sale", u"0"_s, u"03"_s, false, false, {kGuardar + u'N'}, true, u"0 1"_s},
        {"the key of another cash sale", u"0"_s, u"03"_s, true, false, {}, true, u"1 1"_s},
        {"a stored cash sale", u"1"_s, u"03"_s, true, false, {kGuardar + u'N'}, true, u"1 1"_s},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.nombre);
        m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s);
        m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s);
        MetePago(u"1"_s, u"01"_s, u"00000002"_s);
        if (caso.registrado)
            MeteComprobante(caso.contado);
        const auto forma = caso.modo == u"0" ? Nuevo() : Modifica(caso.contado);
        const QString clase = caso.contado.isEmpty() ? u"\r"_s : u"s\r"_s + caso.contado;
        Teclea(caso.modo == u"0" ? clase + u"P001\r1\r"_s : u"1"_s);
        if (caso.modo == u"1")
            De<QLineEdit>(*forma, "MkeFecEmis").setText(u"15/10/2026"_s);
        if (caso.conPago) {
            MetePago(u"1"_s, u"01"_s);
            QDialog otra;
            QTimer::singleShot(0, &otra, &QDialog::accept);
            forma->AbreModal(otra); // its grid is read again
            Muestra(*forma);
        }
        for (const QString& pregunta : caso.preguntas)
            m_avisos.EsperaPregunta(pregunta.chopped(1), pregunta.endsWith(u'S') ? Respuesta::Si : Respuesta::No);
        if (caso.preguntas.value(0) == kGuardar + u'S')
            m_avisos.Espera(u"El número de serie debe ser numérico"_s);
        Clic(*forma, "CmdOpciones_1");
        EXPECT_EQ(forma->isVisible(), !caso.cierra);
        EXPECT_EQ(Cuentas(), caso.quedan);
        m_avisos.Comprueba();
    }
}

} // namespace
