#include "FormFixture.h"

#include "Printers.h"
#include "data/CheckDigits.h"
#include "data/Transaction.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

using Frm518Test = prueba::ConFormulario;

const QString kLimpia = u"Toda la información de la declaración fue grabada satisfactoriamente."_s;
const QString kModificado = u"¿El formulario ha sido modificado, desea guardar los cambios?"_s;

TEST_F(Frm518Test, ANewDeclarationIsTypedInSavedAndComesBack) {
    AbreNueva();
    Identifica();
    EXPECT_EQ(Texto(u"TxtRazon"_s), u"COMERCIAL DEL VALLE S.A.C."_s);
    VaAPestania(1);
    EXPECT_EQ(m_barra.Ruc() + m_barra.Periodo(), prueba::kRucDeclarante + u"10/2026"_s);
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

    AbreRegistrada();
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

TEST_F(Frm518Test, EveryFaultOfTheIdentificationTakesBackToItsField) {
    GrabaUna();
    struct Caso {
        const char* cuando;
        std::function<void()> hace;
        QString texto, foco;
    };
    const auto pestania = [this] { VaAPestania(2); };
    const auto valida = [this] { Pulsa(u"CmdValidar"_s); };
    const auto periodo = [this](const QString& digitos, int declarante = 1) {
        EligeDeclarante(declarante);
        Teclea(u"MkePeriodo"_s, digitos);
    };
    const QString noVale = u"El período no es válido."_s;
    const QString existe = u"La declaración ya ha sido registrada."_s;
    const QList<Caso> casos = {
        {"page, no declarant", pestania, u"Ingrese el RUC."_s, u"CmbRuc"_s},
        {"button, no declarant", valida, u"Debe seleccionar un Contribuyente."_s, u"CmbRuc"_s},
        {"page, no period", [&] { EligeDeclarante(1), VaAPestania(1); }, noVale, u"MkePeriodo"_s},
        {"button, no period", [&] { EligeDeclarante(1), valida(); }, u"Debe ingresar Período."_s, u"MkePeriodo"_s},
        {"next month", [&] { periodo(u"122026"_s), valida(); }, noVale, u"MkePeriodo"_s},
        {"no month", [&] { periodo(u"132025"_s), pestania(); }, noVale, u"MkePeriodo"_s},
        {"registered already", [&] { periodo(u"102026"_s), pestania(); }, existe, u"MkePeriodo"_s},
        {"chosen after its period", [&] { Teclea(u"MkePeriodo"_s, u"102026"_s), EligeDeclarante(1); }, existe,
         u"MkePeriodo"_s}};
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.cuando);
        AbreNueva();
        m_avisos.Espera({Icono::Critico, caso.texto, m_forma->windowTitle()});
        caso.hace();
        m_avisos.Comprueba();
        EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), 0);
        EXPECT_EQ(ConFoco(), caso.foco);
    }
    AbreNueva();
    periodo(u"102026"_s, 0);
    m_avisos.Espera(u"No puede grabar declaraciones con RUC de 8, modifique el RUC de 8 a 11 en el Modulo de "
                    "Registro de Declarantes."_s);
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM CAB"_s), QStringList{u"1"_s});
}

TEST_F(Frm518Test, ValidationListsWhatIsWrongAndTheSaveMarksIt) {
    AbreNueva();
    Identifica();
    VaAPestania(1);
    AgregaCliente(6, u"20500000007"_s, u"50.00"_s);
    prueba::AlAbrir(u"FrmConsist", [](QWidget& ventana) {
        EXPECT_EQ(prueba::De<QPlainTextEdit>(ventana, u"TxtPreliminar").toPlainText(),
                  u"Debe consignar el importe a pagar en Percepciones.\nIndique la forma de pago.\n"_s);
        prueba::Clic(ventana, u"CmdGrabar");
    });
    Pulsa(u"CmdValidar"_s);
    EXPECT_EQ(m_proceso.hayInconsistencia, 1);
    m_forma->activateWindow();
    Paga(u"60"_s);
    const QString exceso = u"El importe a pagar es mayor que el saldo definitivo a pagar."
                           " Se le generará un pago en exceso de Percepciones"_s;
    m_avisos.Espera({Icono::Informacion, exceso, m_forma->windowTitle()});
    m_avisos.Espera({Icono::Exclamacion, u"La declaración no presenta inconsistencias."_s, m_forma->windowTitle()});
    Pulsa(u"CmdValidar"_s);
    Pulsa(u"OptCheque"_s);
    m_avisos.Espera(exceso);
    m_avisos.Espera(u"La infomación de la declaración fue grabada con inconsistencias. En estas condiciones no podra "
                    "ser enviada a ZOLMA."_s);
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

TEST_F(Frm518Test, RectifyingRemindsOnlyThePersonWhoChoosesIt) {
    const QString recuerda = u"Recuerde que debe ingresar toda la información declarada anteriormente inclusive la que "
                             "no esta rectificando o sustituyendo."_s;
    AbreNueva();
    Identifica();
    m_avisos.Espera({Icono::Exclamacion, recuerda, m_forma->windowTitle()});
    Pulsa(u"OptRectifica_1"_s);
    Paga(u"0"_s);
    m_avisos.Espera(kLimpia);
    Pulsa(u"CmdGrabar"_s);
    AbreRegistrada();
    EXPECT_TRUE(Control<QAbstractButton>(u"OptRectifica_1"_s).isChecked());
    EXPECT_EQ(m_base.Filas(u"SELECT rectifica FROM CAB"_s), QStringList{u"1"_s});
}

TEST_F(Frm518Test, ADeletedClientTakesHisVouchersAndTheTotalsFollow) {
    GrabaUna();
    AbreRegistrada();
    VaAPestania(1);
    m_avisos.EsperaPregunta(u"¿Confirma que va a eliminar la información?"_s, Respuesta::No);
    Pulsa(u"CmdOpciones_2"_s);
    EXPECT_EQ(m_avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(Texto(u"TxtValor_401"_s), u"1,000"_s);
    m_avisos.EsperaPregunta(u"¿Confirma que va a eliminar la información?"_s, Respuesta::Si);
    Pulsa(u"CmdOpciones_2"_s);
    EXPECT_EQ(Texto(u"TxtValor_401"_s) + Texto(u"TxtPercepcion"_s), QString());
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM TMPF518PDET"_s), QStringList{u"0"_s});
    EXPECT_EQ(m_base.Filas(u"SELECT count(*) FROM F518PDET"_s), QStringList{u"1"_s}) << "only a save makes it last";
}

TEST_F(Frm518Test, ASentCopyTakesOnlyItsOrderNumber) {
    GrabaUna();
    AbreEnviada();
    EXPECT_EQ(ConFoco(), u"TxtNumOrdenE_0"_s);
    EXPECT_EQ(Texto(u"TxtNumOrdenE_0"_s) + Texto(u"TxtNumOrdenE_1"_s), QString()) << "\"0\" stands for none yet";
    const auto registra = [this](const QString& numero, const QString& digitos) {
        Control<>(u"TxtNumOrdenE_0"_s).clear();
        Control<>(u"TxtNumOrdenE_1"_s).clear();
        Teclea(u"TxtNumOrdenE_0"_s, numero);
        Teclea(u"TxtNumOrdenE_1"_s, digitos);
    };
    const QString digitos = DigitosOrden(u"00000017"_s, u"12345678"_s);
    const QString pregunta = u" El número de orden ha cambiado. ¿Desea guardar los cambios?"_s;
    registra(u"1234567"_s, digitos);
    m_avisos.Espera(u"     El número de orden no es válido"_s);
    Pulsa(u"CmdGrabar"_s);
    m_avisos.EsperaPregunta(pregunta, Respuesta::Si);
    m_avisos.Espera(u"El número de orden es incorrecto"_s);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_TRUE(m_forma->isVisible()) << "the check on closing keeps the form open";
    registra(u"12345678"_s, digitos == u"11"_s ? u"12"_s : u"11"_s);
    m_avisos.Espera(u"     El digito Verificador es incorrecto"_s);
    Pulsa(u"CmdGrabar"_s);
    EXPECT_EQ(ConFoco(), u"TxtNumOrdenE_0"_s);
    registra(u"12345678"_s, digitos);
    m_avisos.EsperaPregunta(pregunta, Respuesta::Si);
    m_avisos.Espera(u"Se registró el número de orden."_s);
    Pulsa(u"CmdCancelar"_s);
    EXPECT_FALSE(m_forma->isVisible());
    EXPECT_EQ(m_base.Filas(u"SELECT norden FROM HCAB"_s), QStringList{u"12345678"_s});
}

TEST_F(Frm518Test, ALockedBaseSpeaksAndLeavesWhatWasTyped) {
    GrabaUna();
    AbreRegistrada();
    VaAPestania(2);
    Teclea(u"TxtValor_404"_s, u"77"_s);
    const QString antes = prueba::Retrato(*m_base);
    {
        const Transaccion ajena = m_base->Comienza();
        AvisosDelPrograma().Espera(u"La base de datos está ocupada por otro programa. (database is locked)"_s);
        Pulsa(u"CmdGrabar"_s);
    }
    AvisosDelPrograma().Comprueba();
    EXPECT_EQ(prueba::Retrato(*m_base), antes);
    EXPECT_TRUE(m_forma->isVisible());
    EXPECT_EQ(Texto(u"TxtValor_404"_s), u"77"_s);
    m_avisos.Espera(u"El importe a pagar es menor que el saldo definitivo a pagar en Percepciones"
                    ". La ZOLMA emitirá una Orden de Pago"_s);
    m_avisos.Espera(kLimpia);
    Pulsa(u"CmdGrabar"_s); // the other one has gone: now it goes through

    AbreNueva();
    Identifica();
    m_base->Ejecuta(u"ALTER TABLE CAB RENAME TO OTRA"_s);
    for (int i = 0; i < 2; ++i) // of the period that is left, and of the page that is entered
        AvisosDelPrograma().Espera(u"no such table: CAB"_s);
    VaAPestania(1);
    AvisosDelPrograma().Comprueba();
    EXPECT_EQ(Control<QTabWidget>(u"SSTab1"_s).currentIndex(), 0) << "nobody goes on unchecked";
    EXPECT_TRUE(Control<>(u"MkePeriodo"_s).isEnabled());
    EXPECT_EQ(m_forma->property("contextoAyuda").toInt(), 1015);
}

} // namespace
} // namespace xa518
