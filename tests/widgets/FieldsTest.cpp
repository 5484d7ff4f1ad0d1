#include "widgets/FieldFilters.h"
#include "widgets/FieldFocus.h"
#include "widgets/FieldKeys.h"
#include "widgets/MaskedField.h"

#include "support/FormDriver.h"

#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QVBoxLayout>

namespace {

/// Types any text, letters beyond ASCII included.
void Escribe(QLineEdit& campo, const QString& teclas) {
    for (const QChar c : teclas) {
        QKeyEvent tecla(QEvent::KeyPress, 0, Qt::NoModifier, c);
        QCoreApplication::sendEvent(&campo, &tecla);
    }
}

/// The words about a key that a field didn't take; empty when there are none.
QString Pista(const QWidget& ventana) {
    const auto* pista = ventana.findChild<QLabel*>(u"LblPista"_s);
    return pista && !pista->isHidden() ? pista->text() : QString();
}

/// Two fields in a window, the first one with the focus.
class FieldsTest : public testing::Test {
  protected:
    void SetUp() override {
        auto* orden = new QVBoxLayout(&m_ventana);
        orden->addWidget(new QLabel(u"Campo :"_s));
        orden->addWidget(&m_campo);
        orden->addWidget(&m_otro);
        Muestra(m_ventana);
        m_campo.setFocus();
    }
    /// What the first field holds after typing into it, starting from a text set by the program.
    QString Teclea(const QString& antes, const QString& teclas) {
        m_campo.setText(antes);
        QTest::keyClicks(&m_campo, teclas);
        return m_campo.text();
    }

    QWidget m_ventana;
    QLineEdit m_campo;
    QLineEdit m_otro;
};

TEST_F(FieldsTest, FiltersByName) {
    const struct {
        const char* nombre;
        void (*pone)(QLineEdit&);
        QString teclas, queda, pista;
    } casos[] = {
        {"digits", [](QLineEdit& campo) { SoloDigitos(campo); }, u"a1 2.3ñ٣-\u00AD\U0001F4A3"_s, u"123"_s,
         u"Sólo números"_s},
        {"number", SoloNumero, u"a1 2.3-"_s, u"123"_s, u"Sólo números"_s},
        {"name", SoloNombre, u"ab Ññáé'c.9-"_s, u"AB C9"_s, u"Sólo letras, sin tilde ni eñe, y números"_s},
        {"amount", [](QLineEdit& campo) { SoloMonto(campo); }, u"1,2.3.4x"_s, u"12.34"_s,
         u"Sólo números; los decimales van con punto"_s},
    };
    for (const auto& caso : casos) {
        QLineEdit campo;
        caso.pone(campo);
        Escribe(campo, caso.teclas);
        EXPECT_EQ(campo.text(), caso.queda) << caso.nombre;
        EXPECT_EQ(Pista(campo), caso.pista) << "of the last key";
        QTest::keyClick(&campo, Qt::Key_Backspace);
        EXPECT_EQ(campo.text(), caso.queda.chopped(1)) << caso.nombre << ": Backspace";
        EXPECT_EQ(Pista(campo), QString()) << "of what is being mended";
    }
}

TEST_F(FieldsTest, AnAmountTakesItsPointFromAnyKeypadAndInPlaceOfASelectedOne) {
    SoloMonto(m_campo);
    m_campo.setText(u"125.50"_s);
    m_campo.selectAll();
    QTest::keyClick(&m_campo, Qt::Key_Comma, Qt::KeypadModifier);
    QTest::keyClicks(&m_campo, u"5"_s);
    QTest::keyClick(&m_campo, Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(m_campo.text() + Pista(m_ventana), u".5"_s) << "Alt with a letter is nothing";
    QTest::keyClicks(&m_campo, u",5"_s);
    EXPECT_TRUE(m_campo.hasFocus() && Pista(m_ventana).endsWith(u"con punto"_s)) << "and stays to be read";
    m_otro.setFocus();
    EXPECT_EQ(Pista(m_ventana), QString());
}

TEST_F(FieldsTest, ALimitStopsTypingAndNeverATextOfTheProgram) {
    m_campo.setMaxLength(12);
    SoloMonto(m_campo);
    EXPECT_EQ(Teclea(u"999,999,999,999.00"_s, u"1"_s), u"999,999,999,999.00"_s);
    EXPECT_EQ(Teclea({}, u"1234567890123"_s), u"123456789012"_s);
    EXPECT_EQ(Teclea({}, u"1234567890123.4567"_s), u"123456789012.45"_s);
    EXPECT_EQ(Teclea(u"123456789012345"_s, u"."_s), u"123456789012345"_s);
    EXPECT_EQ(Pista(m_ventana), u"Hasta 15 caracteres"_s);
    m_campo.selectAll();
    QTest::keyClicks(&m_campo, u"7"_s);
    EXPECT_EQ(m_campo.text(), u"7"_s) << "what is selected gives its room";
    EXPECT_EQ(LimiteDeTecleo(m_campo), 12);
    LimitaTecleo(m_otro, 2);
    Escribe(m_otro, u"ñandú"_s);
    EXPECT_EQ(m_otro.text(), u"ña"_s);
}

TEST_F(FieldsTest, TellsEveryTypedKeyEvenARejectedOne) {
    int avisos = 0;
    SoloDigitos(m_campo);
    EntrarComoTab(m_campo);
    AlTeclear(m_campo, [&avisos] { ++avisos; }); // attached last, told first
    const QList<std::pair<Qt::Key, int>> teclas = {{Qt::Key_X, 1},    {Qt::Key_1, 1},      {Qt::Key_Backspace, 1},
                                                   {Qt::Key_Left, 0}, {Qt::Key_Delete, 1}, {Qt::Key_Shift, 0},
                                                   {Qt::Key_Home, 0}, {Qt::Key_Return, 1}};
    for (const auto& [tecla, cuenta] : teclas) {
        avisos = 0;
        QTest::keyClick(&m_campo, tecla);
        EXPECT_EQ(avisos, cuenta) << tecla;
    }
    m_campo.setText(u"5"_s);
    QTest::keyClick(&m_campo, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(avisos, 1) << "neither the program's text nor a shortcut";
}

TEST_F(FieldsTest, FiltersWhatDeadKeysCompose) {
    SoloNombre(m_campo);
    QInputMethodEvent compuesta;
    compuesta.setCommitString(u"éa"_s);
    QCoreApplication::sendEvent(&m_campo, &compuesta);
    EXPECT_EQ(m_campo.text(), u"A"_s);
}

TEST_F(FieldsTest, ASeriesTakesLettersByPosition) {
    SoloSerie(m_campo, [this] { return m_otro.text().isEmpty(); });
    const struct {
        QString antes;
        int desde, elegidos;
        QString teclas, queda;
    } casos[] = {{u""_s, 0, 0, u"e.-ñ"_s, u"E"_s},
                 {u"E"_s, 1, 0, u"E"_s, u"EE"_s},      // without a selection the check before storing finds it
                 {u"E001"_s, 0, 4, u"F2"_s, u"F2"_s},  // what is selected is replaced
                 {u"E001"_s, 4, -4, u"F2"_s, u"F2"_s}, // from behind, too
                 {u"E001"_s, 0, 1, u"F"_s, u"F001"_s},
                 {u"E001"_s, 1, 3, u"F"_s, u"E001"_s}, // a second letter
                 {u"EF01"_s, 0, 1, u"2"_s, u"EF01"_s}, // one would be left behind the first place
                 {u"E001"_s, 0, 4, u"2"_s, u"2"_s},
                 {u"E001"_s, 0, 0, u"2"_s, u"E001"_s}, // nothing comes before the letter
                 {u"0001"_s, 0, 0, u"2"_s, u"20001"_s}};
    for (const auto& [antes, desde, elegidos, teclas, queda] : casos) {
        m_campo.setText(antes);
        m_campo.setCursorPosition(desde);
        m_campo.setSelection(desde, elegidos);
        Escribe(m_campo, teclas);
        EXPECT_EQ(m_campo.text(), queda) << qPrintable(antes + u'+' + teclas);
    }
    m_otro.setText(u"x"_s);
    EXPECT_EQ(Teclea({}, u"e.1"_s), u"1"_s) << "where no letters are taken";
    QTest::keyClick(&m_campo, Qt::Key_Backspace);
    EXPECT_EQ(m_campo.text(), QString());
}

TEST_F(FieldsTest, EnterGoesToTheNextField) {
    EntrarComoTab(m_campo);
    QTest::keyClick(&m_campo, Qt::Key_Return);
    EXPECT_TRUE(m_otro.hasFocus());
    SoloSerie(m_otro, [] { return true; });
    QTest::keyClick(&m_otro, Qt::Key_Enter);
    EXPECT_TRUE(m_otro.hasFocus()) << "an empty serial isn't passed over";
    QTest::keyClicks(&m_otro, u"e1"_s);
    QTest::keyClick(&m_otro, Qt::Key_Enter);
    EXPECT_TRUE(m_campo.hasFocus());
}

TEST_F(FieldsTest, PasteGuardBlocksAllAndEmptiesByItsGestures) {
    const std::pair<Gestos, std::function<void()>> gestos[] = {
        {Gesto::BotonDerecho, [this] { QTest::mouseClick(&m_campo, Qt::RightButton); }},
        {Gesto::ShiftInsert, [this] { QTest::keyClick(&m_campo, Qt::Key_Insert, Qt::ShiftModifier); }},
        {Gesto::TeclaMenu, [this] { QTest::keyClick(&m_campo, Qt::Key_Menu); }},
        {{}, [this] { QTest::keyClick(&m_campo, Qt::Key_V, Qt::ControlModifier); }}};
    QClipboard* portapapeles = QGuiApplication::clipboard();
    for (const Gestos guardados : {kTodosLosGestos, Gestos(Gesto::BotonDerecho)}) {
        SinPegar(m_campo, guardados);
        for (const auto& [cual, gesto] : gestos) {
            portapapeles->setText(u"123"_s);
            gesto();
            EXPECT_EQ(portapapeles->text(), guardados & cual ? QString() : u"123"_s) << cual.toInt();
            EXPECT_EQ(m_campo.text(), QString());
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        }
    }
    EXPECT_FALSE(m_campo.acceptDrops());
}

/// A message shown on leaving takes and returns the window's focus: nothing may run twice, and a field that was never
/// entered isn't left.
TEST_F(FieldsTest, AFieldThatRefusesKeepsTheFocusAndIsAskedOnce) {
    m_otro.setFocus();
    QStringList pasos;
    AlEntrar(m_campo, [&] { pasos += u"entra"_s; });
    AlSalir(m_campo, [&] {
        pasos += u"sale"_s;
        QMessageBox caja(QMessageBox::Critical, u"t"_s, u"x"_s, QMessageBox::Ok, &m_ventana);
        QTimer::singleShot(50, &caja, &QMessageBox::accept);
        caja.exec();
        Muestra(m_ventana); // a window manager gives the window its focus back
        return Salida::Retenida;
    });
    AlSalir(m_campo, [&] {
        pasos += u"sobra"_s;
        return Salida::Libre;
    });
    AlEntrar(m_otro, [&] { pasos += u"entra otro"_s; });
    AlSalir(m_otro, [&] {
        pasos += u"sale otro"_s;
        return Salida::Libre;
    });
    m_campo.setFocus();
    QTest::keyClick(&m_campo, Qt::Key_Tab);
    EXPECT_TRUE(m_campo.hasFocus());
    EXPECT_EQ(pasos, (QStringList{u"entra"_s, u"sale"_s, u"entra"_s}));
}

TEST_F(FieldsTest, OnlyAnotherFieldTakesTheFocus) {
    m_otro.setFocus();
    int salidas = 0;
    AlSalir(m_campo, [&] {
        ++salidas;
        return Salida::Libre;
    });
    m_campo.setFocus();
    QWidget otra;
    Muestra(otra);
    Muestra(m_ventana);
    EXPECT_EQ(salidas, 0) << "another window";
    EXPECT_EQ(SueltaFoco(), Salida::Libre);
    EXPECT_EQ(salidas, 1);
    m_campo.setFocus();
    m_ventana.hide();
    EXPECT_EQ(salidas, 1) << "the window closes";
}

TEST_F(FieldsTest, AMaskIsTypedFromItsBeginningAndTypedOver) {
    CampoPeriodo periodo;
    m_ventana.layout()->addWidget(&periodo);
    periodo.show();
    QTest::mouseClick(&periodo, Qt::LeftButton, {}, periodo.rect().center());
    QTest::keyClicks(&periodo, u"0x3/20"_s);
    EXPECT_EQ(periodo.text(), u"03/20__"_s);
    EXPECT_FALSE(periodo.EstaCompleto());
    QTest::keyClick(&periodo, Qt::Key_Home);
    m_otro.setFocus();
    periodo.setFocus(); // back at what is missing
    QTest::keyClicks(&periodo, u"10"_s);
    EXPECT_EQ(periodo.text(), u"03/2010"_s);
    QTest::keyClick(&periodo, Qt::Key_Backspace);
    EXPECT_EQ(periodo.text(), u"03/201_"_s);
    QTest::keyClicks(&periodo, u"15"_s);
    EXPECT_EQ(periodo.text(), u"03/2011"_s);
    m_otro.setFocus();
    periodo.setFocus(); // as after a refusal
    QTest::keyClicks(&periodo, u"042012"_s);
    EXPECT_EQ(periodo.text(), u"04/2012"_s);
    for (const QString& texto : {u"__/____"_s, u"1_/2___"_s}) {
        periodo.setText(texto);
        EXPECT_EQ(periodo.text(), texto) << "as it shows, so it is set";
    }
}

} // namespace
