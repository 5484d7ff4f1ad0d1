#include "widgets/LongTask.h"

#include "platform/WorkThread.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/LongTaskBox.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <atomic>
#include <memory>
#include <vector>

namespace xa518 {

namespace {

/// A window that doesn't answer for so long isn't noticed, nor are two or three such works one behind the other.
constexpr int kSinNotarse = 10;
/// A box that goes at once is a flicker.
constexpr int kHastaLaCaja = 300;
constexpr int kRitmo = 100;

/// What a person does to a window. What the window does by itself, and its painting, goes on.
bool EsDeLaPersona(QEvent::Type tipo) {
    switch (tipo) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::ContextMenu:
    case QEvent::Close: return true;
    default: return false;
    }
}

/// The window that an object belongs to, a widget or a shortcut of one; null for any other. What drops down from a
/// window, a menu or a list, is part of it.
const QWidget* VentanaDe(const QObject* objeto) {
    for (; objeto; objeto = objeto->parent()) {
        const auto* control = qobject_cast<const QWidget*>(objeto);
        if (!control)
            continue;
        const QWidget* ventana = control->window();
        if (ventana->windowType() != Qt::Popup || !ventana->parentWidget())
            return ventana;
        objeto = ventana;
    }
    return nullptr;
}

/// What a fast hand does ahead: keys, clicks and access keys.
bool SeAdelanta(QEvent::Type tipo) {
    return tipo == QEvent::KeyPress || tipo == QEvent::KeyRelease || tipo == QEvent::Shortcut ||
           tipo == QEvent::MouseButtonPress || tipo == QEvent::MouseButtonRelease ||
           tipo == QEvent::MouseButtonDblClick;
}

struct Adelantado {
    QPointer<QObject> donde;
    std::unique_ptr<QEvent> evento;
};
using Adelantados = std::vector<Adelantado>;

/// Whether a person could do something to the window.
bool EstaEnfrente(const QWidget& ventana) {
    const QWidget* delante = QApplication::activeModalWidget();
    return ventana.isVisible() && ventana.isActiveWindow() && (!delante || delante == &ventana);
}

/// Each goes where it would have gone, once the one before it has done its work: that may have opened a box, and what
/// was done before it showed isn't meant for it, nor for the window that it keeps waiting.
void HazlosAhora(QWidget& ventana, Adelantados adelantados) {
    QElapsedTimer desde;
    desde.start();
    const auto hace = [yo = QPointer<QWidget>(&ventana), desde,
                       suyos = std::make_shared<Adelantados>(std::move(adelantados))] {
        for (const auto& [donde, evento] : *suyos) {
            if (!yo || !EstaEnfrente(*yo->window()) || desde.elapsed() >= kHastaLaCaja)
                return;
            if (donde)
                QCoreApplication::sendEvent(donde, evento.get());
        }
    };
    QTimer::singleShot(0, &ventana, hace);
}

/// One work over one window. It ends itself.
class TareaLarga final : public QObject, private Avance {
  public:
    TareaLarga(QWidget& ventana, TareaPedida pedida, std::function<void()> alTerminar)
        : QObject(&ventana), m_ventana(&ventana), m_pedida(std::move(pedida)), m_alTerminar(std::move(alTerminar)) {}
    ~TareaLarga() override { m_detener = true; }

    void Lanza(std::function<void(Avance&)> trabajo);

  private:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void Va(qint64 hecho, qint64 total) override;

    void Retiene();
    void Refresca();
    void AbreLaCaja();
    void Suelta();
    void Acaba(const std::exception_ptr& falla);
    void Atiende(const std::exception_ptr& falla) const;

    QWidget* m_ventana;
    TareaPedida m_pedida;
    std::function<void()> m_alTerminar;
    std::atomic<qint64> m_hecho = 0;
    std::atomic<qint64> m_total = 0;
    std::atomic<bool> m_detener = false;
    std::optional<RelojDeArena> m_reloj;
    QPointer<CajaDeTarea> m_caja;
    Adelantados m_adelantados; ///< done before the box told that nothing is taken
    QElapsedTimer m_desde;
    QTimer m_ritmo;
    std::unique_ptr<HiloDeTrabajo> m_hilo; ///< the last: the work uses the others
};

void TareaLarga::Lanza(std::function<void(Avance&)> trabajo) {
    m_desde.start();
    m_reloj.emplace();
    m_hilo = std::make_unique<HiloDeTrabajo>([this, trabajo = std::move(trabajo)] { trabajo(*this); },
                                             [this](const std::exception_ptr& falla) { Acaba(falla); }, this);
    if (!m_hilo->Espera(kSinNotarse))
        Retiene();
}

void TareaLarga::Va(qint64 hecho, qint64 total) {
    m_hecho.store(hecho, std::memory_order_relaxed);
    m_total.store(total, std::memory_order_relaxed);
    if (m_pedida.seDetiene && m_detener.load(std::memory_order_relaxed))
        throw Detenido();
}

void TareaLarga::Retiene() {
    qApp->installEventFilter(this);
    connect(&m_ritmo, &QTimer::timeout, this, [this] { Refresca(); });
    m_ritmo.start(kRitmo);
}

bool TareaLarga::eventFilter(QObject* objeto, QEvent* evento) {
    if (!EsDeLaPersona(evento->type()))
        return false;
    if (VentanaDe(objeto) != m_ventana->window())
        return false;
    const bool seAdelanta = SeAdelanta(evento->type());
    if (seAdelanta && !m_caja)
        m_adelantados.push_back({objeto, std::unique_ptr<QEvent>(evento->clone())});
    evento->setAccepted(seAdelanta); // or it would be offered to the widgets around it; a window would close
    return true;
}

void TareaLarga::Refresca() {
    if (!m_caja && m_desde.elapsed() >= kHastaLaCaja)
        AbreLaCaja();
    if (m_caja)
        m_caja->Muestra(m_hecho.load(std::memory_order_relaxed), m_total.load(std::memory_order_relaxed),
                        m_desde.elapsed());
}

/// Not under a window that has opened over this one meanwhile.
void TareaLarga::AbreLaCaja() {
    const QWidget* delante = QApplication::activeModalWidget();
    if (!m_ventana->isVisible() || (delante && delante != m_ventana->window()))
        return;
    m_reloj.reset();
    m_caja = new CajaDeTarea(m_pedida.titulo, m_pedida.seDetiene, m_ventana);
    connect(m_caja, &CajaDeTarea::Detener, this, [this] { m_detener = true; });
    m_caja->open();
}

void TareaLarga::Suelta() {
    m_ritmo.stop();
    qApp->removeEventFilter(this);
    m_reloj.reset();
    if (!m_caja)
        return;
    delete m_caja;
    m_ventana->activateWindow();
}

void TareaLarga::Acaba(const std::exception_ptr& falla) {
    Suelta();
    const QPointer<TareaLarga> yo = this; // what follows may end the window, and this with it
    const QPointer<QWidget> ventana = m_ventana;
    Adelantados adelantados = std::exchange(m_adelantados, {});
    QElapsedTimer reloj;
    reloj.start();
    Protegido([&] {
        if (falla)
            Atiende(falla);
        else
            std::exchange(m_alTerminar, {})();
    })();
    if (yo)
        yo->deleteLater();
    // Not into a box that has come up meanwhile.
    if (ventana && EstaEnfrente(*ventana->window()) && reloj.elapsed() < kHastaLaCaja)
        HazlosAhora(*ventana, std::move(adelantados));
}

void TareaLarga::Atiende(const std::exception_ptr& falla) const {
    try {
        std::rethrow_exception(falla);
    } catch (const Detenido&) {
        return;
    } catch (...) {
        if (!m_pedida.alFallar)
            throw;
    }
    const auto alFallar = m_pedida.alFallar;
    alFallar(falla);
}

} // namespace

void LanzaTarea(QWidget& ventana, TareaPedida pedida, std::function<void(Avance&)> trabajo,
                std::function<void()> alTerminar) {
    auto* tarea = new TareaLarga(ventana, std::move(pedida), std::move(alTerminar));
    tarea->Lanza(std::move(trabajo));
}

} // namespace xa518
