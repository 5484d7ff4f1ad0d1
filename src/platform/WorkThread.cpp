#include "platform/WorkThread.h"

#include <utility>

namespace xa518 {

void PreparaLosHilos() {
#ifdef __MINGW32__
    qputenv("QT_ENABLE_REGEXP_JIT", "0");
#endif
}

HiloDeTrabajo::HiloDeTrabajo(std::function<void()> trabajo, AlTerminar alTerminar, QObject* padre)
    : QObject(padre), m_alTerminar(std::move(alTerminar)) {
    setObjectName(kEnMarcha);
    m_hilo = std::jthread([this, trabajo = std::move(trabajo)] { Trabaja(trabajo); });
}

void HiloDeTrabajo::Trabaja(const std::function<void()>& trabajo) {
    try {
        trabajo();
    } catch (...) {
        m_falla = std::current_exception();
    }
    m_listo.release();
    QMetaObject::invokeMethod(
        this, [this] { Termina(); }, Qt::QueuedConnection);
}

bool HiloDeTrabajo::Espera(int milisegundos) {
    if (m_terminado)
        return true;
    if (!m_listo.tryAcquire(1, milisegundos))
        return false;
    Termina(); // behind it this object may be gone
    return true;
}

void HiloDeTrabajo::Termina() {
    if (std::exchange(m_terminado, true))
        return;
    m_hilo.join();
    setObjectName(QString());
    const std::exception_ptr falla = m_falla;
    std::exchange(m_alTerminar, {})(falla); // last of all: it may end this object
}

} // namespace xa518
