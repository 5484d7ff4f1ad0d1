#include "detail/FrmAgePer.h"

#include "detail/DetailFixture.h"
#include "form518/WorkTables.h"

#include <QTableView>

namespace {

const QString kFaltaComprobante = u"Ingrese al menos un comprobante de pago"_s;

class ClientDialogTest : public DetailTest {
  protected:
    std::unique_ptr<FrmAgePer> Abre(const std::optional<FilaCliente>& fila = std::nullopt) {
        return Abre(fila ? ModoDetalle::Modificar : ModoDetalle::Nuevo, fila.value_or(FilaCliente()));
    }
    std::unique_ptr<FrmAgePer> Abre(ModoDetalle modo, const FilaCliente& fila) {
        auto forma = std::make_unique<FrmAgePer>(m_entorno, modo, fila);
        Muestra(*forma);
        return forma;
    }
    void MeteCliente(const QString& tipo, const QString& numero) {
        m_base->Ejecuta(u"INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per) VALUES (?,?)"_s, {tipo, numero});
    }
    /// An ordinary voucher with a payment voucher, or a cash sale.
    void MeteComprobante(const QString& numDoc, const QString& numero, const QString& tipCp = {},
                         const QString& monto = u"100.00"_s) {
        m_base->Ejecuta(u"INSERT INTO TMPF518PDET VALUES (6,?,'P001',?,?,'1','0','0','15/10/2026',?,'2.00','2.00')"_s,
                        {numDoc, numero, tipCp, monto});
        if (tipCp.isEmpty())
            m_base->Ejecuta(u"INSERT INTO TMPF518PDETCP VALUES (6,?,'P001',?,'01','F001','1','10/10/2026','118')"_s,
                            {numDoc, numero});
    }
    [[nodiscard]] QString Quedan() const {
        const auto lista = [this](const QString& columna, const QString& tabla) {
            return m_base.Filas(u"SELECT "_s + columna + u" FROM "_s + tabla + u" ORDER BY 1"_s).join(u',');
        };
        return lista(u"num_doc_per"_s, u"TMPF518PCAB"_s) + u" / "_s + lista(u"num_cp & tip_cp"_s, u"TMPF518PDET"_s) +
               u" / "_s + lista(u"num_cp"_s, u"TMPF518PDETCP"_s);
    }
    const FilaCliente m_fila{CodigoDocumento(6), kEmpresa + u' ', u"ACME S.A."_s, {}, {}, {}};
};

TEST_F(ClientDialogTest, RefusesInItsOrder) {
    MeteCliente(u"6"_s, kEmpresa);
    MeteCliente(u"7"_s, u"A1"_s);
    const QString numero = u"TxtNumDoc"_s;
    const QString noValido = u"El RUC no es Válido."_s;
    const QString delDeclarante = u"El RUC no puede ser igual al del declarante."_s;
    const QString otroRuc = u"El RUC del agente de percepción ya se registró."_s;
    const QString otroDocumento = u"El documento del agente de percepción ya se registró."_s;
    const auto dosVeces = [](const QString& mensaje) { return mensaje + u'\n' + mensaje; }; // typed, and at the button
    const struct {
        QString boton;
        QList<Paso> pasos;
    } casos[] = {
        {u"CmdAceptar"_s,
         {{{}, {}, u"Ingrese el tipo de documento."_s, u"CmbTipDoc"_s},
          {{}, u"01"_s, u"Ingrese el número de documento."_s, numero},
          {{}, u"0000000"_s, u"El DNI o LE debe ser de 8 digitos."_s, numero},
          {{}, u"0"_s, u"El número de documento no puede ser cero"_s, numero},
          {{}, u"\b1"_s, u"Ingrese el apellido paterno."_s, u"TxtApePat"_s},
          {{}, u"rojas"_s, u"Ingrese los nombres."_s, u"TxtNombres"_s},
          {{}, u"luz"_s, kFaltaComprobante, u"CmdAceptar"_s}}},
        {u"CmdOpciones_0"_s,
         {{{}, {}, u"Ingrese el tipo de documento."_s, u"CmbTipDoc"_s},
          {{}, u"01"_s, u"Ingrese el número de documento."_s, numero},
          {{}, u"0000000"_s, u"El número de documento no puede ser cero"_s, numero},
          {{}, u"\b1"_s, u"Ingrese el apellido paterno."_s, u"TxtApePat"_s},
          {{}, u"rojas"_s, u"Ingrese los nombres."_s, u"TxtNombres"_s},
          {{}, u"luz"_s, u"El DNI o LE debe ser de 8 digitos."_s, numero}}},
        {u"CmdAceptar"_s,
         {{{}, u"06\r2050000000"_s, noValido, numero}, // ten digits: nothing was said of them while they were typed
          {{}, u"1"_s, dosVeces(noValido), numero},
          {{}, u"\b8"_s, otroRuc + u"\nIngrese la Razón Social."_s, u"TxtNombres"_s},
          {{}, u"acme"_s, kFaltaComprobante, u"CmdAceptar"_s}}},
        {u"CmdAceptar"_s, {{{}, u"06\r"_s + m_entorno.declarante.Texto(), dosVeces(delDeclarante), numero}}},
        {u"CmdOpciones_0"_s,
         {{{}, u"06\r1099200000"_s, noValido, numero},
          {{}, u"2"_s, u"Ingrese el apellido paterno."_s, u"TxtApePat"_s},
          {{}, u"rojas"_s, u"Ingrese los nombres."_s, u"TxtNombres"_s}}},
        {u"CmdOpciones_0"_s, {{{}, u"06\r"_s + m_entorno.declarante.Texto(), dosVeces(delDeclarante), numero}}},
        {u"CmdOpciones_0"_s, {{{}, u"06\r"_s + kEmpresa, dosVeces(otroRuc), numero}}},
        {u"CmdOpciones_0"_s, {{{}, u"07\ra-1 "_s, dosVeces(otroDocumento), numero}}}, // takes no other signs
    };
    for (const auto& [boton, pasos] : casos)
        Sube(*Abre(), boton, pasos);
    const auto forma = Abre();
    Teclea(u"06\r20500000"_s);
    Pulsa(Qt::Key_Backtab);
    Teclea(u"01"_s);
    EXPECT_EQ(De<QLineEdit>(*forma, "TxtNumDoc").text(), QString()) << "another type has another number";
}

/// While its first voucher was typed in, the client came to be registered.
TEST_F(ClientDialogTest, AClientThatIsThereIsNotStoredAgain) {
    const auto forma = Abre();
    Teclea(u"06\r"_s + kEmpresa + u"\racme"_s);
    AlAbrir(u"FrmDetAgePer"_s, [&](QWidget& /*detalle*/) {
        MeteCliente(u"6"_s, kEmpresa);
        MeteComprobante(kEmpresa, u"1"_s);
    });
    Clic(*forma, "CmdOpciones_0");
    Muestra(*forma);
    const QString ya = u"El RUC del agente de percepción ya se registró."_s;
    Sube(*forma, u"CmdAceptar"_s, {{{}, {}, ya, u"CmdAceptar"_s}}); // the number is fixed by now
    EXPECT_EQ(m_base.Filas(u"SELECT des_razon FROM TMPF518PCAB"_s), QStringList{u"<null>"_s});
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB"_s);
    SinBase(*forma, u"CmdAceptar"_s);
    Clic(*forma, "CmdAceptar");
    EXPECT_EQ(m_base.Filas(u"SELECT des_razon FROM TMPF518PCAB"_s), QStringList{u"ACME"_s});
}

TEST_F(ClientDialogTest, SweepsTheVouchersOfAClientNeverStored) {
    for (const Respuesta respuesta : {Respuesta::No, Respuesta::Si}) {
        m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s);
        m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s);
        MeteComprobante(kEmpresa, u"1"_s);
        MeteComprobante(u"20991000004"_s, u"2"_s);
        const auto forma = Abre();
        Teclea(u"06\r"_s + kEmpresa);
        m_avisos.EsperaPregunta(kGuardar, respuesta);
        if (respuesta == Respuesta::Si)
            m_avisos.Espera(u"Ingrese la Razón Social."_s);
        Clic(*forma, "CmdSalir");
        EXPECT_FALSE(forma->isVisible());
        EXPECT_EQ(Quedan(), u" / 2 / 1,2"_s); // the payment vouchers stay
    }
}

TEST_F(ClientDialogTest, CtrlZBringsTheLastDeletedVoucherBackWhereItBelongs) {
    MeteCliente(u"6"_s, kEmpresa);
    MeteComprobante(kEmpresa, u"1"_s);
    MeteComprobante(kEmpresa, u"1"_s, u"12"_s);
    const QString antes = Quedan();
    const auto deshace = [](QWidget& forma) {
        QTest::keyClick(&De(forma, "GrdPer"), Qt::Key_Z, Qt::ControlModifier);
        EsperaTrabajos();
    };
    {
        const auto forma = Abre(m_fila);
        m_avisos.EsperaPregunta(u"¿Confirma que va a eliminar la información?"_s, Respuesta::Si);
        Clic(*forma, "CmdOpciones_2");
        EXPECT_NE(Quedan(), antes);
        Clic(*forma, "CmdSalir");
    }
    const auto forma = Abre(m_fila); // in a later opening
    deshace(*forma);
    EXPECT_EQ(Quedan(), antes);
    EXPECT_EQ(De<QLineEdit>(*forma, "TxtPercepcion").text(), u"4.00"_s);
    TablasTrabajo(*m_base).EliminaCliente({CodigoDocumento(6), kEmpresa});
    m_avisos.Espera(
        u"Lo último que se eliminó es el cliente %1. Para recuperarlo pulse Ctrl+Z en la lista de clientes."_s.arg(
            kEmpresa));
    deshace(*forma);
    EXPECT_EQ(Quedan(), u" /  / "_s);
}

TEST_F(ClientDialogTest, AStoredClientWithoutVouchersGoesIfThePersonSaysSo) {
    MeteCliente(u"6"_s, kEmpresa);
    MeteComprobante(kEmpresa, u"1"_s);
    MeteComprobante(kEmpresa, u"1"_s, u"12"_s);
    const auto forma = Abre(m_fila);
    const auto elimina = [&](Respuesta respuesta) {
        m_avisos.EsperaPregunta(u"¿Confirma que va a eliminar la información?"_s, respuesta);
        Clic(*forma, "CmdOpciones_2");
        EXPECT_EQ(m_avisos.Mostrados().last().preseleccionada, Respuesta::No);
    };
    elimina(Respuesta::No);
    elimina(Respuesta::Si);
    EXPECT_EQ(Quedan(), kEmpresa + u" / 112 / "_s);
    EXPECT_EQ(De<QLineEdit>(*forma, "TxtPercepcion").text(), u"2.00"_s);
    elimina(Respuesta::Si);
    m_avisos.EsperaPregunta(kSinComprobantes, Respuesta::No);
    Clic(*forma, "CmdSalir");
    EXPECT_TRUE(forma->isVisible());
    m_avisos.EsperaPregunta(kSinComprobantes, Respuesta::Si);
    forma->close();
    EXPECT_FALSE(forma->isVisible());
    EXPECT_EQ(Quedan(), u" /  / "_s);
}

TEST_F(ClientDialogTest, TotalsAreStoredEvenWhenTheNamesAreNot) {
    MeteCliente(u"6"_s, kEmpresa);
    MeteComprobante(kEmpresa, u"1"_s, {}, u"999999999999.99"_s);
    const auto fila = [this] {
        return m_base.Filas(u"SELECT des_razon, des_apellido_p, ctd_docs, mto_base_p, mto_imp_p FROM TMPF518PCAB"_s)
            .join(u';');
    };
    auto forma = Abre(m_fila);
    Teclea(u"x"_s);
    m_avisos.EsperaPregunta(kGuardar, Respuesta::No);
    Clic(*forma, "CmdSalir");
    EXPECT_EQ(fila(), u"<null>|<null>|1|999999999999.99|2.00"_s);
    MeteComprobante(kEmpresa, u"2"_s, {}, u"999999999999.99"_s);
    forma = Abre(m_fila);
    Clic(*forma, "CmdAceptar");
    EXPECT_EQ(fila(), u"ACME S.A.|<null>|2|2000000000000|4.00"_s); // sixteen characters: no decimals
}

/// The import takes types that the catalogue doesn't offer here.
TEST_F(ClientDialogTest, AClientOfATypeThatIsNotOfferedOpensOnHisVouchers) {
    m_base.Param(u"044"_s, u"2"_s, Funcion({{32, u"CARNET F.P."_s}, {46, u"12"_s}, {128, u"0"_s}, {130, u"0"_s}}));
    MeteComprobante(u"555"_s, u"1"_s);
    m_base->Ejecuta(u"UPDATE TMPF518PDET SET tip_doc_per=2"_s);
    const auto forma = Abre(FilaCliente{CodigoDocumento(2), u"555"_s, {}, u"ROJAS"_s, {}, u"ANA"_s});
    EXPECT_EQ(De<QTableView>(*forma, "GrdPer").model()->rowCount(), 1);
    AlAbrir(u"FrmDetAgePer"_s,
            [](QWidget& detalle) { EXPECT_EQ(De<QComboBox>(detalle, "CmbTipDoc").currentText().left(2), u"02"_s); });
    Clic(*forma, "CmdOpciones_1");
}

TEST_F(ClientDialogTest, ASentClientIsOnlyLookedAt) {
    MeteComprobante(kEmpresa, u"1"_s);
    const auto forma = Abre(ModoDetalle::Ver, m_fila);
    QStringList activos;
    for (QWidget* control : forma->findChildren<QWidget*>()) {
        const bool esControl = qobject_cast<QAbstractButton*>(control) || qobject_cast<QLineEdit*>(control);
        if (esControl && control->isVisible() && control->isEnabled())
            activos += control->objectName();
    }
    const QPalette colores = De(*forma, "Frame2").palette();
    EXPECT_EQ(colores.color(QPalette::Disabled, QPalette::WindowText), colores.color(QPalette::WindowText));
    EXPECT_EQ(activos.join(u' '), u"CmdOpciones_1 TxtPercepcion CmdSalir"_s);
    AlAbrir(u"FrmDetAgePer"_s, [&](QWidget& detalle) {
        EXPECT_FALSE(De(detalle, "CmdOpciones_0").isEnabled());
        EXPECT_FALSE(De(detalle, "MkeFecEmis").isEnabled());
        AlAbrir(u"frmPerDet"_s, [](QWidget& pago) {
            EXPECT_FALSE(De(pago, "TxtMtoDet").isEnabled());
            EXPECT_FALSE(De(pago, "CmdOpciones_0").isEnabled());
        });
        De(detalle, "GrdDetPer").setFocus();
        Teclea(u"\r"_s); // a row of the grid, as with a double click
    });
    Clic(*forma, "CmdOpciones_1");
}

} // namespace
