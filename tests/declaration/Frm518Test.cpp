#include "declaration/FormFixture.h"

#include "data/Transaction.h"
#include "family/StoredDeclaration.h"
#include "values/CheckDigits.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>

namespace {

class Frm518Test : public ConFormulario {
  protected:
    [[nodiscard]] QString Identidad() {
        return Control<QComboBox>(u"CmbRuc"_s).currentText() + u' ' + Texto(u"MkePeriodo"_s);
    }
    [[nodiscard]] QString Orden() { return Texto(u"TxtNumOrdenE_0"_s) + u'-' + Texto(u"TxtNumOrdenE_1"_s); }
};

TEST_F(Frm518Test, ANewDeclarationIsTypedInSavedAndComesBack) {
    AbreNueva();
    auto& lista = Control<QComboBox>(u"CmbRuc"_s);
    for (const Qt::Key tecla :
         {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_PageUp}) {
        QTest::keyClick(&lista, tecla);
        EXPECT_EQ(lista.currentIndex(), -1) << tecla << " only opens the list";
        lista.hidePopup();
    }
    Identifica();
    EXPECT_EQ(Texto(u"TxtRazon"_s), u"COMERCIAL DEL VALLE S.A.C."_s);
    m_avisos.Espera({Icono::Exclamacion,
                     u"Recuerde que debe ingresar toda la información declarada anteriormente inclusive la que no esta "
                     "rectificando o sustituyendo."_s,
                     m_forma->windowTitle()});
    Pulsa(u"OptRectifica_1"_s);
    VaAPestania(1);
    EXPECT_EQ(m_barra.Ruc() + m_barra.Periodo(), kRucDeclarante + u"10/2026"_s);
    EXPECT_FALSE(Control<>(u"MkePeriodo"_s).isEnabled()) << "entering the detail freezes the key";
    AgregaCliente(6, u"20500000007"_s, u"1001.50"_s);
    EXPECT_EQ(Texto(u"TxtPercepcion"_s), u"1,002"_s);

    VaAPestania(2);
    EXPECT_EQ(ConFoco(), u"TxtValor_402"_s);
    QTest::keyClicks(&Control<>(u"TxtValor_402"_s), u"3a0-0"_s);
    QTest::keyClick(&Control<>(u"TxtValor_402"_s), Qt::Key_Return);
    EXPECT_EQ(Texto(u"TxtValor_402"_s), u"(300)"_s);
    EXPECT_EQ(ConFoco(), u"TxtValor_404"_s) << "Enter goes on to the next box that is typed";
    QTest::keyClicks(&Control<>(u"TxtValor_404"_s), u"1000"_s);
    EXPECT_EQ(Texto(u"TxtValor_404"_s), u"1000"_s) << "plain while it is edited";
    EXPECT_EQ(Texto(u"TxtValor_405"_s), u"1,702"_s) << "at once, with every key";
    Paga(u"1702"_s);
    EXPECT_EQ(Texto(u"TxtValor_404"_s), u"1,000"_s);
    Control<>(u"TxtValor_404"_s).setFocus();
    EXPECT_EQ(Texto(u"TxtValor_404"_s), u"1000"_s) << "plain again";
    Pulsa(u"OptCheque"_s);
    QTest::keyClick(&Control<QComboBox>(u"CmbBanco"_s), Qt::Key_Down);
    Teclea(u"TxtNumeroCheque"_s, u"0045"_s);
    m_avisos.Espera({Icono::Exclamacion, kLimpia, m_forma->windowTitle()});
    Pulsa(u"CmdGrabar"_s);
    m_avisos.Espera(kLimpia); // a second save of the same form is no duplicate
    Pulsa(u"CmdGrabar"_s);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_FALSE(m_forma->isVisible());
    EXPECT_EQ(m_barra.Ruc() + m_barra.Periodo(), QString());

    AbreRegistrada(); // only the person who chooses to rectify is reminded
    EXPECT_TRUE(Control<QAbstractButton>(u"OptRectifica_1"_s).isChecked());
    EXPECT_EQ(ConFoco(), u"OptRectifica_1"_s) << "on the other, a space bar would change the answer";
    EXPECT_FALSE(Control<>(u"MkePeriodo"_s).isEnabled());
    EXPECT_EQ(Texto(u"MkePeriodo"_s), u"10/2026"_s);
    const QStringList casillas = {u"401"_s, u"402"_s, u"403"_s, u"404"_s, u"405"_s, u"410"_s};
    QStringList valores;
    for (const QString& casilla : casillas)
        valores.append(Texto(u"TxtValor_"_s + casilla));
    EXPECT_EQ(valores, (QStringList{u"1,002"_s, u"(300)"_s, u"702"_s, u"1,000"_s, u"1,702"_s, u"1,702"_s}));
    EXPECT_EQ(Texto(u"TxtNumeroCheque"_s), u"0045"_s);
    EXPECT_EQ(Control<QTableView>(u"GrdDatos"_s).model()->rowCount(), 1);
    Pulsa(u"CmdCancelar"_s); // nothing was changed, nothing is asked
    EXPECT_FALSE(m_forma->isVisible());
}

/// What became of the one before it is no change under this one.
TEST_F(Frm518Test, ANewDeclarationMayFollowOneThatWasSentOrDeleted) {
    GrabaUna();
    const ClaveDeclaracion clave{
        .ruc = Ruc(kRucDeclarante), .periodo = *Periodo::DePantalla(u"10/2026"_s), .formulario = kNumFormulario};
    ASSERT_TRUE(EstadoGuardado::De(*m_base, clave).Existe());
    EliminaDeclaracion(*m_base, Formulario0518(), clave, FirmaDe(u"EVA"_s, m_reloj));
    GrabaUna();
    EXPECT_TRUE(EstadoGuardado::De(*m_base, clave).Existe());
}

TEST_F(Frm518Test, AnEmptyListOfDeclarantsSaysWhoseItIs) {
    m_base->Ejecuta(u"UPDATE CONT SET Usuario = 'JEFE'"_s);
    AbreNueva();
    EXPECT_TRUE(Control<QLabel>(u"LblSinDeclarantes"_s).isVisible());
    EXPECT_EQ(Control<QComboBox>(u"CmbRuc"_s).accessibleDescription(),
              u"El usuario ANA no tiene declarantes. Regístrelos en la Consola, ficha Declarantes."_s);
}

TEST_F(Frm518Test, EveryFaultOfTheIdentificationTakesBackToItsField) {
    GrabaUna();
    struct Caso {
        const char* cuando;
        std::function<void()> hace;
        QString texto, foco; // no text: refused without a word
        Icono icono = Icono::Critico;
        int pestania = 0;
    };
    const auto pestania = [this] { VaAPestania(2); };
    const auto valida = [this] { Pulsa(u"CmdValidar"_s); };
    const auto graba = [this] { Pulsa(u"CmdGrabar"_s); };
    const auto sale = [this] { QTest::keyClick(&Control<>(u"MkePeriodo"_s), Qt::Key_Tab); };
    const auto periodo = [this](const QString& digitos, int declarante = 1) {
        EligeDeclarante(declarante);
        Teclea(u"MkePeriodo"_s, digitos);
    };
    const QString campo = u"MkePeriodo"_s;
    const QString faltaRuc = u"Debe seleccionar un Contribuyente."_s;
    const QString noVale = u"El período no es válido."_s;
    const QString existe = u"La declaración ya ha sido registrada."_s;
    const QString deOcho = u"No puede grabar declaraciones con RUC de 8, modifique el RUC de 8 a 11 en el Modulo de "
                           "Registro de Declarantes."_s;
    const QList<Caso> casos = {
        {"page, no declarant", pestania, u"Ingrese el RUC."_s, u"CmbRuc"_s},
        {"button, no declarant", valida, faltaRuc, u"CmbRuc"_s},
        {"save, no declarant", graba, faltaRuc, u"CmbRuc"_s},
        {"page, no period", [&] { EligeDeclarante(1), VaAPestania(1); }, noVale, campo},
        {"page, half a period", [&] { periodo(u"1020"_s), pestania(); }, noVale, campo},
        {"button, no period", [&] { EligeDeclarante(1), valida(); }, u"Debe ingresar Período."_s, campo},
        {"button, half a period", [&] { periodo(u"1020"_s), graba(); }, {}, campo},
        {"next month", [&] { periodo(u"122026"_s), valida(); }, noVale, campo},
        {"too old", [&] { periodo(u"122004"_s), graba(); }, noVale, campo},
        {"no month", [&] { periodo(u"132025"_s), pestania(); }, noVale, campo},
        {"month 00, left", [&] { periodo(u"002026"_s), sale(); }, noVale, campo},
        {"registered already", [&] { periodo(u"102026"_s), pestania(); }, existe, campo},
        {"registered already, left", [&] { periodo(u"102026"_s), sale(); }, existe, campo},
        {"chosen after its period", [&] { Teclea(campo, u"102026"_s), EligeDeclarante(1); }, existe, campo},
        {"eight digits", [&] { periodo(u"112026"_s, 0), VaAPestania(2), graba(); }, deOcho, u"CmdGrabar"_s,
         Icono::Informacion, 2}}; // it may be looked at and validated: only the save stops
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.cuando);
        AbreNueva();
        if (!caso.texto.isEmpty())
            m_avisos.Espera({caso.icono, caso.texto, m_forma->windowTitle()});
        QString escrito;
        m_avisos.AlMostrar([&] { escrito = Identidad(); });
        caso.hace();
        m_avisos.Comprueba();
        EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), caso.pestania);
        EXPECT_EQ(ConFoco(), caso.foco);
        EXPECT_TRUE(caso.texto.isEmpty() || Identidad() == escrito) << "what was typed is lost";
    }
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM CAB"_s), QStringList{u"1"_s});
    m_base.Agrega(u"HCAB"_s, {{u"Doc_id_d"_s, kRucDeclarante}, {u"periodo"_s, u"202609"_s}});
    for (const QString& vale : {u"012005"_s, u"112026"_s, u"092026"_s}) { // the last one was only sent
        AbreNueva();
        if (vale == u"092026")
            m_avisos.EsperaPregunta(
                u"El período 09/2026 de este declarante ya fue enviado (copia -).\n\n¿Desea traer sus "
                "clientes, comprobantes y casillas para rectificarlo?"_s,
                Respuesta::No);
        periodo(vale);
        pestania();
        EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), 2) << vale.toStdString();
    }
}

TEST_F(Frm518Test, ValidationListsWhatIsWrongAndTheSaveMarksIt) {
    AbreNueva();
    Identifica();
    VaAPestania(1);
    AgregaCliente(6, u"20500000007"_s, u"50.00"_s);
    AlAbrir(u"FrmConsist", [](QWidget& ventana) {
        EXPECT_EQ(De<QPlainTextEdit>(ventana, u"TxtPreliminar").toPlainText(),
                  u"Debe consignar el importe a pagar en Percepciones.\nIndique la forma de pago.\n"_s);
        Clic(ventana, u"CmdGrabar");
    });
    Pulsa(u"CmdValidar"_s);
    m_forma->activateWindow();
    Paga(u"40"_s);
    m_avisos.Espera({Icono::Informacion,
                     u"El importe a pagar es menor que el saldo definitivo a pagar en Percepciones"
                     ". La ZOLMA emitirá una Orden de Pago"_s,
                     m_forma->windowTitle()});
    m_avisos.Espera({Icono::Exclamacion, u"La declaración no presenta inconsistencias."_s, m_forma->windowTitle()});
    Pulsa(u"CmdValidar"_s);
    Pulsa(u"OptCheque"_s);
    Teclea(u"TxtValor_410"_s, u"1"_s);
    m_avisos.Espera({Icono::Informacion,
                     u"El importe a pagar es mayor que el saldo definitivo a pagar."
                     " Se le generará un pago en exceso de Percepciones"_s,
                     m_forma->windowTitle()});
    m_avisos.Espera({Icono::Exclamacion,
                     u"La infomación de la declaración fue grabada con inconsistencias. En estas condiciones no podra "
                     "ser enviada a ZOLMA."_s,
                     m_forma->windowTitle()});
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT estado FROM CAB"_s), QStringList{u"9"_s});
}

TEST_F(Frm518Test, LeavingAsksOnlyAfterAChangeAndGoesInAnyCase) {
    struct Caso {
        const char* cambio;
        std::function<void()> hace;
        bool pregunta;
    };
    const QList<Caso> casos = {
        {"nothing", [] {}, false},
        {"a key that was rejected", [&] { QTest::keyClicks(&Control<>(u"MkePeriodo"_s), u"x"_s); }, true},
        {"an option", [&] { Pulsa(u"OptRectifica_0"_s); }, true},
        {"a delete without a row", [&] { Identifica(), VaAPestania(1), Pulsa(u"CmdOpciones_2"_s); }, true}};
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.cambio);
        AbreNueva();
        caso.hace();
        if (caso.pregunta)
            m_avisos.EsperaPregunta(kModificado, Respuesta::No);
        m_forma->close();
        EXPECT_FALSE(m_forma->isVisible());
        m_avisos.Comprueba();
    }
    GrabaUna();
    AbreRegistrada();
    VaAPestania(2);
    QLineEdit& importe = Control<QLineEdit>(u"TxtValor_410"_s);
    importe.setFocus();
    importe.selectAll();
    QTest::keyClick(&importe, Qt::Key_X, Qt::ControlModifier); // a change without a key that is typed
    ASSERT_EQ(importe.text(), QString());
    m_avisos.EsperaPregunta(kModificado, Respuesta::No);
    m_forma->close();

    AbreNueva();
    Pulsa(u"OptRectifica_0"_s);
    m_avisos.EsperaPregunta(kModificado, Respuesta::Si);
    m_avisos.Espera(u"Debe seleccionar un Contribuyente."_s); // the save is refused, and the form goes all the same
    Pulsa(u"CmdCancelar"_s);
    EXPECT_FALSE(m_forma->isVisible());
}

TEST_F(Frm518Test, WhatIsTypedOutlivesTheFormUntilItIsSavedOrLeft) {
    const QString kImporte = u"\"410\":\"1,000\""_s;
    const auto escrito = [this] { return m_base.Filas(u"SELECT Escrito FROM TMPF518SINGRABAR"_s).join(u'|'); };
    AbreNueva();
    Identifica();
    VaAPestania(1);
    AgregaCliente(6, u"20500000007"_s, u"1000.00"_s);
    Paga(u"1000"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return escrito().contains(kImporte); }));

    m_forma.reset(); // as a crash ends it
    AbreRetomada();
    EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), 2);
    EXPECT_EQ(Texto(u"TxtValor_410"_s) + Texto(u"TxtValor_405"_s), u"1,0001,000"_s);
    EXPECT_TRUE(Control<QAbstractButton>(u"OptEfectivo"_s).isChecked());
    m_avisos.EsperaPregunta(kModificado, Respuesta::Otra);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_TRUE(m_forma->isVisible()) << "it stays";
    EXPECT_FALSE(escrito().isEmpty());
    m_avisos.Espera(kLimpia);
    Pulsa(u"CmdGrabar"_s);
    EXPECT_TRUE(escrito().isEmpty());

    VaAPestania(1);
    AgregaCliente(1, u"45678901"_s, u"1.00"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !escrito().isEmpty(); }));
    m_avisos.EsperaPregunta(kModificado, Respuesta::No);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_TRUE(escrito().isEmpty()) << "it was left on purpose";
}

TEST_F(Frm518Test, WhatIsOnlyLookedAtIsNotKept) {
    GrabaUna();
    m_base->Ejecuta(u"INSERT INTO DET (Doc_id_d, tip_doc_d, periodo, Formulario, Casilla, i_valor) SELECT Doc_id_d,"
                    " tip_doc_d, periodo, Formulario, '871', '1' FROM CAB"_s);
    AbreRegistrada();
    EXPECT_TRUE(Control<QAbstractButton>(u"OptRectifica_1"_s).isChecked());
    VaAPestania(2);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM TMPF518SINGRABAR"_s), QStringList{u"0"_s});
}

/// Taken up again, it isn't saved over what another program has made of it meanwhile.
TEST_F(Frm518Test, ARetakenDeclarationKeepsTheGuardOfItsHead) {
    GrabaUna();
    AbreRegistrada();
    VaAPestania(1);
    AgregaCliente(1, u"45678901"_s, u"1.00"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return TablaSinGrabar(*m_base).Lee().has_value(); }));
    m_forma.reset();
    m_base->Ejecuta(u"UPDATE CAB SET cNumero = '999999'"_s);
    AbreRetomada();
    m_avisos.Espera(u"La declaración 0518 de 10/2026 fue cambiada por otro medio mientras estaba abierta aquí.\n\nNo se"
                    " ha grabado nada; lo que ingresó sigue en la pantalla."_s);
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM F518PCAB"_s), QStringList{u"1"_s});
}

TEST_F(Frm518Test, ADeletedClientTakesHisVouchersAndTheTotalsFollow) {
    GrabaUna();
    AbreRegistrada();
    VaAPestania(1);
    const Mensaje pregunta{Icono::Pregunta, u"¿Confirma que va a eliminar la información?"_s, m_forma->windowTitle()};
    m_avisos.EsperaPregunta(pregunta.texto, Respuesta::No);
    Pulsa(u"CmdOpciones_2"_s);
    EXPECT_EQ(m_avisos.Mostrados().last().mensaje, pregunta);
    EXPECT_EQ(m_avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(Texto(u"TxtValor_401"_s), u"1,000"_s);
    m_avisos.EsperaPregunta(pregunta.texto, Respuesta::Si);
    Pulsa(u"CmdOpciones_2"_s);
    EXPECT_EQ(Texto(u"TxtValor_401"_s) + Texto(u"TxtPercepcion"_s), QString());
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM TMPF518PDET"_s), QStringList{u"0"_s});
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM F518PDET"_s), QStringList{u"1"_s}) << "only a save makes it last";
}

TEST_F(Frm518Test, CtrlZBringsTheDeletedClientBackWithItsBoxes) {
    GrabaUna();
    AbreRegistrada();
    VaAPestania(1);
    const auto deshace = [this] {
        QTest::keyClick(&Control<QPushButton>(u"CmdOpciones_2"_s), Qt::Key_Z,
                        Qt::ControlModifier); // where the delete left it
        EsperaTrabajos();
    };
    deshace(); // nothing to bring back, nothing to say
    m_avisos.EsperaPregunta(u"¿Confirma que va a eliminar la información?"_s, Respuesta::Si);
    Pulsa(u"CmdOpciones_2"_s);
    EXPECT_EQ(Texto(u"TxtValor_401"_s), QString());
    deshace();
    EXPECT_EQ(Texto(u"TxtValor_401"_s), u"1,000"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM TMPF518PDET"_s), QStringList{u"1"_s});
}

TEST_F(Frm518Test, TheGridNamesAPersonAsOnPaperAndWidensForALaterRow) {
    AbreNueva();
    Identifica();
    VaAPestania(1);
    AgregaCliente(6, u"20500000007"_s, u"1.00"_s);
    m_base->Ejecuta(u"UPDATE TMPF518PCAB SET des_razon=' ', des_apellido_p='ROJAS', des_apellido_m='LUNA', "
                    "des_nombres='ANA'"_s);
    AgregaCliente(1, u"45678901"_s, u"123456789012.00"_s);
    const auto& grilla = Control<QTableView>(u"GrdDatos"_s);
    const auto texto = [&](int fila, int columna) { return grilla.model()->index(fila, columna).data().toString(); };
    EXPECT_EQ(texto(0, 2), u"ROJAS LUNA, ANA"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT des_razon FROM TMPF518PCAB"_s).first(), u" "_s);
    EXPECT_GT(grilla.columnWidth(4), grilla.fontMetrics().horizontalAdvance(texto(1, 4)));
}

TEST_F(Frm518Test, ASentCopyTakesOnlyItsOrderNumber) {
    GrabaUna();
    AbreEnviada();
    const QPalette colores = Control<QRadioButton>(u"OptEfectivo"_s).palette();
    EXPECT_EQ(colores.color(QPalette::Disabled, QPalette::WindowText), colores.color(QPalette::WindowText));
    const QString campo = u"TxtNumOrdenE_0"_s;
    EXPECT_EQ(ConFoco(), campo);
    EXPECT_EQ(Orden(), u"-"_s) << "\"0\" stands for none yet";
    const QString digitos = DigitosOrden(u"00000017"_s, u"12345678"_s);
    const QString titulo = m_forma->windowTitle();
    const Mensaje pregunta{Icono::Pregunta, u" El número de orden ha cambiado. ¿Desea guardar los cambios?"_s, titulo};
    const QString corto = u"     El número de orden no es válido"_s;
    const QString otro = u"     El digito Verificador es incorrecto"_s;
    const struct {
        QString numero, digitos, alGrabar, alCerrar; // the same fault has two wordings
    } casos[] = {{u"1234567"_s, digitos, corto, u"El número de orden es incorrecto"_s},
                 {u"12345678"_s, digitos == u"11"_s ? u"12"_s : u"11"_s, otro, u"Digito verificador incorrecto"_s},
                 {u"12345678"_s, digitos.left(1), otro, u"Digito verificador incorrecto"_s}};
    const auto escribe = [&](const QString& numero, const QString& verificador) {
        Control<>(campo).clear();
        Control<>(u"TxtNumOrdenE_1"_s).clear();
        Teclea(campo, numero);
        Teclea(u"TxtNumOrdenE_1"_s, verificador);
    };
    for (const auto& caso : casos) {
        escribe(caso.numero, caso.digitos);
        for (const QString& boton : {u"CmdGrabar"_s, u"CmdCancelar"_s}) {
            const bool cierra = boton == u"CmdCancelar"_s;
            if (cierra)
                m_avisos.EsperaPregunta(pregunta.texto, Respuesta::Si);
            m_avisos.Espera({Icono::Critico, cierra ? caso.alCerrar : caso.alGrabar, titulo});
            Pulsa(boton);
            EXPECT_TRUE(!cierra || m_avisos.Mostrados().first().mensaje == pregunta);
            m_avisos.Comprueba();
            EXPECT_TRUE(m_forma->isVisible()) << "also the check on closing keeps the form open";
            EXPECT_EQ(ConFoco(), campo);
            EXPECT_EQ(Orden(), caso.numero + u'-' + caso.digitos);
        }
    }
    m_base.Agrega(u"HCAB"_s, {{u"Doc_id_d"_s, kRucDeclarante}, {u"periodo"_s, u"202610"_s}, {u"correl"_s, u"4"_s}});
    const auto copias = [&] { return m_base.Filas(u"SELECT correl, norden, cNumero FROM HCAB ORDER BY correl"_s); };
    const QStringList antes = copias();
    m_base->Ejecuta(u"UPDATE HCAB SET correl='5' WHERE correl='3'"_s);
    m_avisos.Espera(u"Se registró el número de orden."_s); // wanted: also when there is no row to write
    escribe(u"12345678"_s, digitos);
    Pulsa(u"CmdGrabar"_s);
    m_base->Ejecuta(u"UPDATE HCAB SET correl='3' WHERE correl='5'"_s);
    EXPECT_EQ(copias(), antes);
    for (const QString& boton : {u"CmdGrabar"_s, u"CmdCancelar"_s}) {
        escribe(u"12345678"_s, digitos);
        if (boton == u"CmdCancelar"_s)
            m_avisos.EsperaPregunta(pregunta.texto, Respuesta::Si);
        m_avisos.Espera({Icono::Exclamacion, u"Se registró el número de orden."_s, titulo});
        Pulsa(boton);
        EXPECT_TRUE(copias().first().startsWith(u"3|12345678|"_s));
        EXPECT_NE(copias().first().section(u'|', 2), antes.first().section(u'|', 2)) << "its checksum";
        EXPECT_EQ(copias().last(), antes.last()) << "the other copy";
    }
    EXPECT_FALSE(m_forma->isVisible());
}

/// What becomes of the base's file under the open form, and what is said of it.
TEST_F(Frm518Test, ABaseThatFailsIsToldAndLeavesWhatWasTyped) {
    const QString ruta = m_base.Ruta();
    std::optional<Transaccion> ajena;
    const struct {
        const char* cual;
        std::function<void()> hace;
        QString texto;
    } casos[] = {{"locked", [&] { ajena.emplace(m_base->Comienza()); },
                  u"La base de datos está ocupada por otro programa: espere a que termine y vuelva a intentarlo."_s},
                 {"moved away", [&] { EXPECT_TRUE(QFile::rename(ruta, ruta + u'_')); },
                  u"No se encuentra el archivo '%1'."_s.arg(ruta)},
                 {"overwritten", [&] { EscribeEn(ruta, QByteArray(100'000, 'x')); },
                  u"El archivo está dañado o no es una base de datos."_s},
                 {"emptied", [&] { EscribeEn(ruta, {}); }, u"A la base de datos le falta una tabla."_s}};
    GrabaUna();
    const QByteArray bytes = BytesDe(ruta);
    const QString antes = Retrato(*m_base);
    for (const auto& [cual, hace, texto] : casos) {
        SCOPED_TRACE(cual);
        AbreRegistrada();
        VaAPestania(2);
        Teclea(u"TxtValor_404"_s, u"77"_s);
        hace();
        AvisosDelPrograma().Espera({Icono::Critico, texto, m_forma->windowTitle()});
        Pulsa(u"CmdGrabar"_s);
        AvisosDelPrograma().Comprueba();
        EXPECT_TRUE(m_forma->isVisible());
        EXPECT_EQ(Texto(u"TxtValor_404"_s), u"77"_s);
        EXPECT_EQ(Control<QTableView>(u"GrdDatos"_s).model()->rowCount(), 1) << "no list passes for an empty one";
        m_avisos.EsperaPregunta(kModificado, Respuesta::No);
        Pulsa(u"CmdCancelar"_s);
        EXPECT_FALSE(m_forma->isVisible()) << "it doesn't hold the person either";
        ajena.reset();
        QFile::remove(ruta + u'_');
        EscribeEn(ruta, bytes);
        m_forma.reset();
        m_proceso.baseDatos = Base::Abre(ruta);
        EXPECT_EQ(Retrato(*m_proceso.baseDatos), antes);
    }
}

TEST_F(Frm518Test, ACheckThatFailsLetsNobodyGoOn) {
    AbreNueva();
    Identifica();
    m_base->Ejecuta(u"ALTER TABLE CAB RENAME TO OTRA"_s);
    for (int i = 0; i < 2; ++i) // of the period that is left, and of the page that is entered
        AvisosDelPrograma().Espera(u"A la base de datos le falta una tabla."_s);
    VaAPestania(1);
    AvisosDelPrograma().Comprueba();
    EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), 0) << "nobody goes on unchecked";
    EXPECT_TRUE(Control<>(u"MkePeriodo"_s).isEnabled());
    EXPECT_EQ(m_forma->property("contextoAyuda").toInt(), 1015);
}

} // namespace
