#include "widgets/Form.h"

#include "support/NoticeScript.h"
#include "values/Error.h"
#include "widgets/FieldFocus.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

/// A form with a field that can refuse to be left, and one of everything that may take its focus.
class FormaDePrueba final : public Forma {
  public:
    FormaDePrueba() {
        auto* orden = new QVBoxLayout(this);
        for (QWidget* control : QList<QWidget*>{&m_campo, &m_lista, &m_opcion, &m_grabar, &m_salir, &m_fichas})
            orden->addWidget(control);
        m_fichas.addTab(new QWidget, u"&Identificación"_s);
        m_fichas.addTab(new QWidget, u"&Percepción"_s);
        m_lista.addItem(u"uno"_s);
        AlSalir(m_campo, [this] { return AlDejarCampo(); });
        connect(&m_grabar, &QPushButton::clicked, [this] { m_pasos += u"graba"_s; });
        connect(&m_opcion, &QRadioButton::clicked, [this] { m_pasos += u"opción"_s; });
        connect(&m_salir, &QPushButton::clicked, [this] { reject(); });
        connect(&m_fichas, &QTabWidget::currentChanged, [this] { m_pasos += u"ficha"_s; });
        Prepara({&m_salir});
        show();
    }
    Salida AlDejarCampo() {
        m_pasos += u"deja"_s;
        if (m_falla)
            throw Error(NumeroError::BaseNoExiste, u"sin base"_s);
        if (m_conMensaje) {
            QMessageBox caja(QMessageBox::Critical, u"t"_s, u"x"_s, QMessageBox::Ok, this);
            QTimer::singleShot(50, &caja, &QMessageBox::accept);
            caja.exec();
            activateWindow(); // as a window manager does
            EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        }
        return m_salida;
    }
    void Salir() override {
        m_pasos += u"sale"_s;
        if (m_cierra)
            Termina();
    }

    /// What happens when a person does this with the focus in the field.
    QStringList Al(const std::function<void()>& gesto) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        m_campo.setFocus();
        m_pasos.clear();
        gesto();
        return m_pasos;
    }

    QLineEdit m_campo;
    QComboBox m_lista;
    QRadioButton m_opcion{u"&Opción"_s};
    QPushButton m_grabar{u"&Grabar"_s};
    QPushButton m_salir{u"&Salir"_s};
    QTabWidget m_fichas;
    QStringList m_pasos;
    Salida m_salida = Salida::Libre;
    bool m_conMensaje = false;
    bool m_falla = false;
    bool m_cierra = false;
};

class FocusCareTest : public testing::TestWithParam<bool> {
  protected:
    void SetUp() override { m_forma.m_conMensaje = GetParam(); }

    std::function<void()> Clic(QWidget& control) {
        return [&control] { QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2}); };
    }
    std::function<void()> Alt(Qt::Key letra) {
        return [this, letra] {
            QTest::keyClick(&m_forma, letra, Qt::AltModifier);
            QTest::qWait(120); // a mnemonic holds the button down for a tenth of a second
        };
    }
    std::function<void()> ClicFicha() {
        QTabBar* barra = m_forma.m_fichas.tabBar();
        return [barra] { QTest::mouseClick(barra, Qt::LeftButton, {}, barra->tabRect(1).center()); };
    }

    FormaDePrueba m_forma;
};

TEST_P(FocusCareTest, TheLeaveHandlerRunsBeforeWhateverTakesTheFocus) {
    const QStringList graba{u"deja"_s, u"graba"_s};
    EXPECT_EQ(m_forma.Al(Clic(m_forma.m_grabar)), graba);
    EXPECT_EQ(m_forma.Al(Alt(Qt::Key_G)), graba);
    EXPECT_FALSE(m_forma.m_grabar.isDown());
    EXPECT_EQ(m_forma.Al(Clic(m_forma.m_opcion)), (QStringList{u"deja"_s, u"opción"_s}));
    EXPECT_EQ(m_forma.Al(ClicFicha()), (QStringList{u"deja"_s, u"ficha"_s}));
    EXPECT_EQ(m_forma.Al(Alt(Qt::Key_I)), (QStringList{u"deja"_s, u"ficha"_s}));
    EXPECT_EQ(m_forma.Al(Alt(Qt::Key_O)), (QStringList{u"deja"_s, u"opción"_s}));
    EXPECT_EQ(m_forma.Al(Clic(m_forma.m_salir)).mid(0, 2), (QStringList{u"deja"_s, u"sale"_s}));
    EXPECT_EQ(m_forma.Al([this] { m_forma.close(); }), (QStringList{u"deja"_s, u"sale"_s}));
}

TEST_P(FocusCareTest, ARefusalDropsTheClickButNotTheWayOut) {
    m_forma.m_salida = Salida::Retenida;
    const QStringList soloDeja{u"deja"_s};
    const QList<std::function<void()>> gestos = {Clic(m_forma.m_grabar), Alt(Qt::Key_G), Clic(m_forma.m_opcion),
                                                 Clic(m_forma.m_lista),  ClicFicha(),    Alt(Qt::Key_P)};
    for (qsizetype i = 0; i < gestos.size(); ++i) {
        EXPECT_EQ(m_forma.Al(gestos.at(i)), soloDeja) << i;
        EXPECT_TRUE(m_forma.m_campo.hasFocus()) << i;
    }
    EXPECT_FALSE(m_forma.m_opcion.isChecked());
    EXPECT_FALSE(m_forma.m_grabar.isDown());
    EXPECT_EQ(m_forma.m_fichas.currentIndex(), 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    for (const auto& salida : {Clic(m_forma.m_salir), Alt(Qt::Key_S)})
        EXPECT_TRUE(m_forma.Al(salida).contains(u"sale"_s));
    EXPECT_TRUE(m_forma.Al([this] { m_forma.close(); }).contains(u"sale"_s));
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutAMessage, FocusCareTest, testing::Bool());

TEST(FormTest, ALeaveHandlerThatFailsDropsTheClickToo) {
    FormaDePrueba forma;
    forma.m_falla = true;
    AvisosDelPrograma().Espera({Icono::Critico, u"sin base"_s, forma.windowTitle()});
    EXPECT_EQ(forma.Al([&] { QTest::mouseClick(&forma.m_grabar, Qt::LeftButton); }), QStringList{u"deja"_s});
    EXPECT_TRUE(forma.m_campo.hasFocus());
    forma.m_falla = false;
}

TEST(FormTest, EnterMovesOnAndPressesOnlyTheFocusedButton) {
    FormaDePrueba forma;
    EXPECT_EQ(forma.Al([&] { QTest::keyClick(&forma.m_campo, Qt::Key_Return); }), QStringList{u"deja"_s});
    EXPECT_TRUE(forma.m_lista.hasFocus());
    QTest::keyClick(&forma.m_lista, Qt::Key_Enter);
    QTest::keyClick(&forma.m_opcion, Qt::Key_Return);
    EXPECT_TRUE(forma.m_grabar.hasFocus());
    EXPECT_EQ(forma.m_pasos, QStringList{u"deja"_s});
    QTest::keyClick(&forma.m_grabar, Qt::Key_Return);
    EXPECT_EQ(forma.m_pasos, (QStringList{u"deja"_s, u"graba"_s}));
    QTest::simulateEvent(&forma.m_grabar, true, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QTest::simulateEvent(&forma.m_grabar, true, Qt::Key_G, Qt::AltModifier, u"g"_s, true);
    for (const auto tipo : {QEvent::KeyRelease, QEvent::KeyPress}) { // at one moment, as only X's keyboard does
        QKeyEvent repetida(tipo, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
        repetida.setTimestamp(1000);
        QCoreApplication::sendEvent(&forma.m_grabar, &repetida);
    }
    EXPECT_EQ(forma.m_pasos.size(), 2) << "no key that is held down presses it again";
}

TEST(FormTest, ADisabledListIsAsGreyAsAField) {
    FormaDePrueba forma;
    forma.m_campo.setEnabled(false);
    forma.m_lista.setEnabled(false);
    const auto fondo = [](QWidget& control) {
        const QImage imagen = control.grab().toImage();
        return imagen.pixelColor(imagen.width() / 2, imagen.height() / 2);
    };
    EXPECT_EQ(fondo(forma.m_lista), fondo(forma.m_campo));
    EXPECT_NE(fondo(forma.m_lista), forma.palette().color(QPalette::Active, QPalette::Base));
}

TEST(FormTest, TheFocusOfAGroupIsTheMarkedOptions) {
    for (const bool conGrupo : {false, true}) {
        Forma forma;
        QVBoxLayout orden(&forma);
        QRadioButton no(u"No"_s);
        QRadioButton si(u"Si"_s);
        QLineEdit campo;
        for (QWidget* control : QList<QWidget*>{&no, &si, &campo})
            orden.addWidget(control);
        QButtonGroup grupo;
        if (conGrupo) {
            grupo.addButton(&no);
            grupo.addButton(&si);
        }
        si.setChecked(true);
        CuidaElFoco(forma, {});
        forma.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&forma));
        EXPECT_TRUE(si.hasFocus()) << "as it opens";
        QTest::keyClick(&si, Qt::Key_Tab);
        EXPECT_TRUE(campo.hasFocus());
        no.setFocus();
        EXPECT_TRUE(si.hasFocus()) << "by the program";
        QTest::keyClick(&si, Qt::Key_Backtab);
        EXPECT_TRUE(campo.hasFocus());
        QTest::mouseClick(&no, Qt::LeftButton, {}, {8, no.height() / 2});
        EXPECT_TRUE(no.hasFocus() && no.isChecked());
        QTest::keyClick(&no, Qt::Key_Down);
        EXPECT_TRUE(si.hasFocus() && si.isChecked());
    }
}

TEST(FormTest, EscDoesNothingAndTheCloseButtonIsTheWayOut) {
    FormaDePrueba forma;
    EXPECT_EQ(forma.Al([&] { QTest::keyClick(&forma, Qt::Key_Escape); }), QStringList());
    EXPECT_FALSE(forma.close());
    EXPECT_TRUE(forma.isVisible()) << "the way out may still stay";
    forma.m_cierra = true;
    forma.close();
    EXPECT_FALSE(forma.isVisible());
}

} // namespace
