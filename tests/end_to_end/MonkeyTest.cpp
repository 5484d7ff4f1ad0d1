#include "app/MDIFrm.h"
#include "app/ModuleForms.h"
#include "end_to_end/SampleModule.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "launcher/FrmConsola.h"
#include "platform/WorkThread.h"
#include "reports/ShowReport.h"
#include "support/FileDialogScript.h"
#include "support/NoticeScript.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QRandomGenerator>
#include <QTabBar>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QWheelEvent>

#include <array>

namespace {

/// What gets further than noise does, and noise of the worse kind.
const QStringList kTextos = {
    u"20990518018"_s,     u"20500000008"_s, u"10992000006"_s, u"45678901"_s, u"102026"_s,       u"092026"_s,
    u"15102026"_s,        u"15/10/2026"_s,  u"P001"_s,        u"1"_s,        u"100.25"_s,       u"1000"_s,
    u"99999999999"_s,     u"-1"_s,          u"01"_s,          u"03"_s,       u"D'ANGELO \"Ñ"_s, u"%s\t\n\r;--"_s,
    u"\u202e\U0001F4A3"_s};
constexpr Qt::Key kTeclas[] = {
    Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_Space,     Qt::Key_Up,
    Qt::Key_Down,   Qt::Key_Left,  Qt::Key_Home, Qt::Key_End,     Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_PageDown,
    Qt::Key_PageUp, Qt::Key_F1,    Qt::Key_F4,   Qt::Key_F5,      Qt::Key_Menu,   Qt::Key_Insert,    Qt::Key_A};

/// Keys, clicks, wheel and pastes at random on whatever form is in front. MONO_SEGUNDOS says for how long, MONO_SEMILLA
/// which chance.
class Mono {
  public:
    /// Whether there is time left; it runs from the first call on.
    [[nodiscard]] bool Sigue() {
        if (!m_reloj.isValid())
            m_reloj.start();
        return m_reloj.elapsed() < m_plazo;
    }

    /// Plays until the window is closed or the time is over; then every form over it goes.
    void Juega(QWidget& ventana, const QList<QAction*>& ordenes) {
        m_ventana = &ventana;
        m_ordenes = ordenes;
        QTimer::singleShot(0, &ventana, [this] { Paso(); });
        while (Sigue() && ventana.isVisible())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        m_ventana = nullptr;
    }

    [[nodiscard]] bool EstaJugando() const { return m_ventana; }
    [[nodiscard]] quint32 Azar(qsizetype hasta) { return m_azar.bounded(static_cast<quint32>(hasta)); }
    [[nodiscard]] int Pasos() const { return m_pasos; }
    /// How many steps each form has stood.
    [[nodiscard]] QString Informe() const {
        QStringList partes;
        for (auto forma = m_formas.cbegin(); forma != m_formas.cend(); ++forma)
            partes.append(forma.key().section(u"::"_s, -1) + u' ' + QString::number(forma.value()));
        return u"pasos %1: %2"_s.arg(m_pasos).arg(partes.join(u", "_s));
    }

  private:
    /// Asks for the next step first: this one may open a form and come back only when that closes.
    void Paso() {
        if (!m_ventana)
            return;
        QTimer::singleShot(0, m_ventana, [this] { Paso(); });
        if (!m_ventana->isVisible() && !QApplication::activeModalWidget())
            return; // what a work had begun may still open a form over a window that is gone
        QWidget* forma = Enfrente();
        auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialogo && !Sigue())
            return dialogo->done(QDialog::Rejected);
        ++m_pasos;
        ++m_formas[QString::fromLatin1(forma->window()->metaObject()->className())];
        Actua(*forma);
    }

    [[nodiscard]] QWidget* Enfrente() const {
        if (QWidget* popup = QApplication::activePopupWidget())
            return popup;
        QWidget* modal = QApplication::activeModalWidget();
        QWidget* forma = modal ? modal : m_ventana.data();
        QWidget* activa = QApplication::activeWindow();
        return activa && activa->parentWidget() == forma ? activa : forma; // the help stays open beside its form
    }

    [[nodiscard]] QWidget* Campo(QWidget& forma) {
        QWidget* conFoco = QApplication::focusWidget();
        if (conFoco && conFoco->window() == forma.window() && Azar(3) > 0)
            return conFoco;
        QList<QWidget*> campos;
        for (QWidget* campo : forma.findChildren<QWidget*>()) {
            const bool responde = campo->focusPolicy() != Qt::NoFocus || Azar(8) == 0; // labels and frames seldom
            if (responde && campo->isVisible() && campo->isEnabled() && campo->window() == forma.window())
                campos.append(campo);
        }
        return campos.isEmpty() ? &forma : campos[Azar(campos.size())];
    }

    void Actua(QWidget& forma) {
        QWidget& campo = *Campo(forma);
        switch (Azar(20)) {
        case 0: return Rueda(campo);
        case 1: return Pega(campo);
        case 2: return QApplication::activeModalWidget() ? Hojea(forma) : Ordena();
        case 3: return Azar(8) == 0 ? static_cast<void>(forma.close()) : Raton(campo);
        case 4:
        case 5:
        case 6:
        case 7:
        case 8: return Raton(campo);
        default: return Teclea(campo);
        }
    }

    void Teclea(QWidget& campo) {
        const QPointer<QWidget> vive = &campo;
        if (Azar(4) == 0) {
            for (const QChar letra : kTextos[Azar(kTextos.size())]) {
                if (vive)
                    QTest::sendKeyEvent(QTest::Click, vive, Qt::Key_unknown, QString(letra), Qt::NoModifier);
            }
            return;
        }
        constexpr Qt::KeyboardModifier modos[] = {Qt::NoModifier,     Qt::NoModifier,  Qt::NoModifier,
                                                  Qt::NoModifier,     Qt::AltModifier, Qt::ShiftModifier,
                                                  Qt::ControlModifier};
        const auto modo = modos[Azar(std::size(modos))];
        const bool letra = modo == Qt::AltModifier || Azar(4) == 0;
        const auto tecla = letra ? static_cast<Qt::Key>(Qt::Key_A + Azar(26)) : kTeclas[Azar(std::size(kTeclas))];
        QTest::keyClick(&campo, tecla, modo);
    }

    void Raton(QWidget& campo) {
        const QPoint donde(static_cast<int>(Azar(campo.width() + 1)), static_cast<int>(Azar(campo.height() + 1)));
        const auto boton = Azar(8) == 0 ? Qt::RightButton : Qt::LeftButton;
        const QPointer<QWidget> vive = &campo;
        QTest::mouseClick(&campo, boton, {}, donde);
        if (vive && Azar(4) == 0)
            QTest::mouseDClick(&campo, boton, {}, donde);
    }

    void Rueda(QWidget& campo) {
        const QPointF centro = campo.rect().center();
        QWheelEvent evento(centro, campo.mapToGlobal(centro), {}, {0, Azar(2) ? 120 : -120}, Qt::NoButton,
                           Azar(2) ? Qt::NoModifier : Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&campo, &evento);
    }

    void Pega(QWidget& campo) {
        const QString texto = Azar(3) ? kTextos[Azar(kTextos.size())] : QString(300, QChar(u'0' + Azar(80)));
        QApplication::clipboard()->setText(texto);
        QTest::keyClick(&campo, Qt::Key_V, Qt::ControlModifier);
    }

    /// Turns to another page: one field among many, whose pages lead to forms of their own.
    void Hojea(QWidget& forma) {
        auto* paginas = forma.window()->findChild<QTabBar*>();
        if (!paginas || !paginas->isVisible())
            return;
        const auto cual = static_cast<int>(Azar(paginas->count()));
        QTest::mouseClick(paginas, Qt::LeftButton, {}, paginas->tabRect(cual).center());
    }

    /// Past the window, which holds what a person does while a work goes on beside it.
    void Ordena() {
        if (m_ordenes.isEmpty() || m_ventana->findChild<QObject*>(HiloDeTrabajo::kEnMarcha))
            return;
        QAction* orden = m_ordenes[Azar(m_ordenes.size())];
        if (orden->isEnabled())
            orden->trigger();
    }

    QRandomGenerator m_azar{static_cast<quint32>(qEnvironmentVariable("MONO_SEMILLA", u"518"_s).toUInt())};
    QElapsedTimer m_reloj;
    qint64 m_plazo = qEnvironmentVariable("MONO_SEGUNDOS", u"5"_s).toLongLong() * 1000;
    QPointer<QWidget> m_ventana;
    QList<QAction*> m_ordenes;
    QMap<QString, int> m_formas;
    int m_pasos = 0;
};

/// Answers at random.
class AvisosAlAzar final : public Avisos {
  public:
    explicit AvisosAlAzar(Mono& mono) : m_mono(mono) {}

  private:
    void HazMuestra(const Mensaje& /*mensaje*/) override {}
    Respuesta HazPregunta(const Mensaje& /*mensaje*/, Respuesta /*preseleccionada*/) override {
        return m_mono.Azar(2) ? Respuesta::Si : Respuesta::No;
    }
    Respuesta HazPreguntaConOtra(const Mensaje& /*mensaje*/, const QString& /*otra*/) override {
        if (!m_mono.EstaJugando()) // at the start: a form that opened now would wait for somebody who isn't there yet
            return Respuesta::Otra;
        return std::array{Respuesta::Si, Respuesta::No, Respuesta::Otra}.at(m_mono.Azar(3));
    }

    Mono& m_mono;
};

/// What isn't a fault of the program: the screen of the tests says that it lacks what a real one has.
bool EsDeLaPantalla(const QString& aviso) {
    return aviso.contains("This plugin does not support"_L1);
}

/// Each kind of complaint of the toolkit fails the test, once.
void AnotaAviso(QtMsgType tipo, const QMessageLogContext& /*lugar*/, const QString& aviso) {
    static QStringList vistos;
    if (tipo == QtDebugMsg || tipo == QtInfoMsg || EsDeLaPantalla(aviso) || vistos.contains(aviso))
        return;
    vistos.append(aviso);
    ADD_FAILURE() << "the toolkit complains: " << aviso.toStdString();
}

class MonkeyTest : public ModuloDeMuestra {
  protected:
    void SetUp() override {
        ModuloDeMuestra::SetUp();
        anterior = qInstallMessageHandler(AnotaAviso);
    }
    void TearDown() override {
        qInstallMessageHandler(anterior);
        QDir::setCurrent(QDir::rootPath());
        const auto base = Base::Abre(carpeta + u"/XA000.DB"_s);
        Registros integridad = base->Lee(u"PRAGMA integrity_check"_s);
        ASSERT_TRUE(integridad.Siguiente());
        EXPECT_EQ(integridad.Texto(0), u"ok"_s);
        EXPECT_GT(mono.Pasos(), 100);
        RecordProperty("pasos", mono.Pasos());
        QTextStream(stdout) << mono.Informe() << '\n';
    }

    QtMessageHandler anterior = nullptr;
    Mono mono;
    AvisosAlAzar avisos{mono};
    DialogosDeArchivoDePrueba archivos;
};

TEST_F(MonkeyTest, TheModuleStandsAnything) {
    while (mono.Sigue()) {
        Proceso proceso(reloj, {Formulario0518()}, kNumFormulario);
        MDIFrm principal(proceso, avisos, perfil, FormasDelModulo(proceso, avisos, archivos, perfil));
        ASSERT_TRUE(principal.Carga());
        // Nobody finds the way to every form by chance alone: a command opens one now and then.
        mono.Juega(principal, principal.findChildren<QAction*>());
    }
}

TEST_F(MonkeyTest, TheLauncherStandsAnything) {
    qputenv("PATH", raiz.path().toLocal8Bit()); // the button of the module mustn't start one that is installed here
    const VistaDeInforme vista = [this](QWidget& ventana, const QString& informes, const InformeRegistrado& informe) {
        MuestraReporte({informes, informe.usuario, reloj, avisos, archivos}, {informe.archivo, informe.titulo, {}},
                       ventana);
    };
    while (mono.Sigue()) {
        FrmConsola principal(entorno, avisos, raiz.filePath(u"nada"_s), vista);
        principal.show();
        mono.Juega(principal, {});
    }
}

} // namespace
