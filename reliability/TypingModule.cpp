// The module at work by itself, to be killed: it types into a new declaration, imports and validates without a pause,
// and tells every change in a file the moment that it is made. Taking up what was left, it tells what the form then
// shows. Its arguments: the file, "escribe" or "retoma", and the seed of what is typed.

#include "app/Forms.h"
#include "app/MDIFrm.h"
#include "app/ModuleForms.h"
#include "family/Configuration.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "platform/ProfileFile.h"
#include "platform/WorkThread.h"
#include "widgets/Application.h"
#include "widgets/FileDialogBoxes.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDebug>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <cstdlib>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRitmoMs = 30;
constexpr quint32 kSuertes = 160;    ///< one in so many steps imports, validates or pays
constexpr int kVaciasQueBastan = 30; ///< turns without a form, past which none will come
const QStringList kCasillas{u"TxtValor_402"_s, u"TxtValor_404"_s, u"TxtValor_410"_s};

/// Says yes to whatever is asked, and passes on what is told.
class AvisosQueAceptan final : public Avisos {
    void HazMuestra(const Mensaje& mensaje) override { qWarning().noquote() << mensaje.texto; }
    Respuesta HazPregunta(const Mensaje& /*mensaje*/, Respuesta /*preseleccionada*/) override { return Respuesta::Si; }
    Respuesta HazPreguntaConOtra(const Mensaje& /*mensaje*/, const QString& /*otra*/) override { return Respuesta::Si; }
};

template <typename Control = QWidget>
Control& De(const QWidget& forma, const QString& nombre) {
    auto* control = forma.findChild<Control*>(nombre);
    if (!control)
        qFatal("no control %s", qPrintable(nombre));
    return *control;
}

/// What was typed, as digits alone, and the page.
QString Estado(const QWidget& forma) {
    QStringList estado;
    for (const QString& casilla : kCasillas) {
        QString cifras;
        for (const QChar letra : De<QLineEdit>(forma, casilla).text())
            cifras += letra.isDigit() ? QString(letra) : QString();
        estado.append(cifras);
    }
    estado.append(De<QAbstractButton>(forma, u"OptEfectivo"_s).isChecked() ? u"E"_s : u"-"_s);
    estado.append(QString::number(De<QTabWidget>(forma, u"SSTab1"_s).currentIndex()));
    return estado.join(u'|');
}

/// The person who works at it.
class Mano final : public QObject {
  public:
    Mano(MDIFrm& ventana, const QString& diario, bool retoma, quint32 semilla)
        : m_ventana(&ventana), m_diario(diario), m_retoma(retoma), m_azar(semilla) {
        if (!m_diario.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            qFatal("no diary");
        // Not from the timer itself, which stands still while a form that the step has opened is there.
        connect(&m_ritmo, &QTimer::timeout, this, [this] {
            QMetaObject::invokeMethod(
                this, [this] { Da(); }, Qt::QueuedConnection);
        });
        if (m_retoma) // what is offered stands in front before the start is through
            m_ritmo.start(kRitmoMs);
    }
    /// Once the window has started.
    void EmpiezaAEscribir() {
        if (!m_retoma)
            m_ritmo.start(kRitmoMs);
    }

  private:
    void Anota(const QString& que) {
        const auto desde = std::chrono::steady_clock::now().time_since_epoch();
        const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(desde).count();
        m_diario.write(u"%1 %2\n"_s.arg(ms).arg(que).toUtf8());
    }

    /// One step, on whatever form is in front; none while one is on its way or works.
    void Da() {
        QWidget* forma = QApplication::activeModalWidget();
        if (m_dando && forma == m_anterior)
            return;
        m_dando = true;
        m_anterior = forma;
        if (!forma)
            Empieza();
        else if (forma->objectName() == "Frm518"_L1)
            m_retoma ? Cuenta(*forma) : Escribe(*forma);
        else if (forma->objectName() == "frmTransferencia"_L1)
            Importa(*forma);
        else if (forma->objectName() == "FrmConsist"_L1)
            forma->close();
        m_dando = false;
    }

    void Empieza() {
        if (m_retoma) {
            const bool trabaja = m_ventana->findChild<QObject*>(HiloDeTrabajo::kEnMarcha) != nullptr;
            m_vacias = trabaja ? 0 : m_vacias + 1;
            if (m_vacias < kVaciasQueBastan)
                return;
            Anota(u"nada"_s);
            std::_Exit(EXIT_SUCCESS);
        }
        if (!m_empezada) {
            m_empezada = true;
            De<QAction>(u"mnuNueva"_s)->trigger();
        }
    }
    template <typename Control>
    Control* De(const QString& nombre) {
        return m_ventana->findChild<Control*>(nombre);
    }

    void Cuenta(const QWidget& forma) {
        Anota(u"retomada "_s + Estado(forma));
        std::_Exit(EXIT_SUCCESS);
    }

    void Escribe(QWidget& forma) {
        if (!m_identificada)
            return Identifica(forma);
        const quint32 suerte = m_azar.bounded(kSuertes);
        if (suerte == 0 && !m_importada) {
            VaA(forma, 1);
            m_importada = true;
            ::De<QPushButton>(forma, u"CmdOpciones_3"_s).click();
        } else if (suerte == 1) {
            ::De<QPushButton>(forma, u"CmdValidar"_s).click();
        } else if (suerte == 2) {
            VaA(forma, static_cast<int>(m_azar.bounded(3U)));
        } else {
            VaA(forma, 2);
            Teclea(::De<QLineEdit>(forma, kCasillas[m_azar.bounded(static_cast<quint32>(kCasillas.size()))]));
            Anota(Estado(forma));
            if (suerte == 3)
                ::De<QAbstractButton>(forma, u"OptEfectivo"_s).click();
        }
        Anota(Estado(forma));
    }

    /// Each change by itself: what is kept may lie between two of them.
    void VaA(QWidget& forma, int pestania) {
        ::De<QTabWidget>(forma, u"SSTab1"_s).setCurrentIndex(pestania);
        Anota(Estado(forma));
    }

    void Identifica(QWidget& forma) {
        auto& lista = ::De<QComboBox>(forma, u"CmbRuc"_s);
        QTest::keyClick(&lista, Qt::Key_Down);
        QTest::keyClick(lista.view(), Qt::Key_Home);
        QTest::keyClick(lista.view(), Qt::Key_Return);
        auto& periodo = ::De<QLineEdit>(forma, u"MkePeriodo"_s);
        periodo.setFocus();
        QTest::keyClick(&periodo, Qt::Key_Home);
        QTest::keyClicks(&periodo, u"102026"_s);
        ::De<QTabWidget>(forma, u"SSTab1"_s).setCurrentIndex(1);
        m_identificada = true;
        Anota(Estado(forma));
        Anota(u"empieza"_s);
    }

    void Teclea(QLineEdit& casilla) {
        casilla.setFocus();
        if (casilla.text().size() > 8)
            casilla.selectAll();
        else
            casilla.end(false);
        QTest::keyClick(&casilla, static_cast<Qt::Key>(Qt::Key_1 + m_azar.bounded(9U)));
    }

    void Importa(QWidget& forma) {
        auto& transferir = ::De<QPushButton>(forma, u"cmdTransferir"_s);
        if (!transferir.isEnabled())
            return;
        if (!m_transferida) {
            m_transferida = true;
            Anota(u"importa"_s);
            transferir.click();
        } else {
            Anota(u"importado"_s);
            ::De<QPushButton>(forma, u"cmCancelar"_s).click();
        }
    }

    MDIFrm* m_ventana;
    QFile m_diario;
    bool m_retoma;
    QRandomGenerator m_azar;
    QTimer m_ritmo;
    QWidget* m_anterior = nullptr;
    int m_vacias = 0;
    bool m_dando = false;
    bool m_empezada = false;
    bool m_identificada = false;
    bool m_importada = false;
    bool m_transferida = false;
};

} // namespace

int main(int argc, char* argv[]) {
    AvisosQueAceptan avisos;
    const Aplicacion aplicacion(argc, argv, avisos);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.size() != 4)
        return EXIT_FAILURE;
    const RelojSistema reloj;
    Proceso proceso(reloj, FormulariosConocidos(), kNumFormulario);
    DialogosDeArchivoEnPantalla archivos;
    const ArchivoPerfil perfil = PerfilCompartido();
    MDIFrm principal(proceso, avisos, perfil, FormasDelModulo(proceso, avisos, archivos, perfil));
    const bool retoma = argumentos[2] == "retoma"_L1;
    Mano mano(principal, argumentos[1], retoma, argumentos[3].toUInt());
    if (!principal.Carga())
        return EXIT_FAILURE;
    mano.EmpiezaAEscribir();
    return QCoreApplication::exec();
}
