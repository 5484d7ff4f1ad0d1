#pragma once

#include <QObject>
#include <QSemaphore>

#include <exception>
#include <functional>
#include <thread>

namespace xa518 {

/// To be called before anything is looked for by a regular expression. What the toolkit keeps in each thread for
/// compiled ones is freed by MinGW's run-time before it is taken down at the thread's end, which now and then ended the
/// program; interpreted ones keep nothing there. Where there is no MinGW nothing is done.
void PreparaLosHilos();

/// A piece of work in a thread of its own. It starts with the object, and its end comes to the object's thread. Who
/// destroys the object waits for the work: it is to be told to stop before.
class HiloDeTrabajo final : public QObject {
  public:
    /// Gets what the work has raised; null when it came to its end.
    using AlTerminar = std::function<void(const std::exception_ptr& falla)>;

    /// `trabajo` runs in the thread, `alTerminar` once in this object's, from its event loop or within `Espera`. The
    /// object goes by the name of `kEnMarcha` until then.
    HiloDeTrabajo(std::function<void()> trabajo, AlTerminar alTerminar, QObject* padre = nullptr);

    /// Waits so long for the end; true when it has come, and has been told.
    bool Espera(int milisegundos);

    static constexpr QLatin1StringView kEnMarcha{"HiloDeTrabajo"};

  private:
    void Trabaja(const std::function<void()>& trabajo);
    void Termina();

    AlTerminar m_alTerminar;
    std::exception_ptr m_falla;
    QSemaphore m_listo;
    bool m_terminado = false;
    std::jthread m_hilo; ///< the last, so that it has ended before the others go
};

} // namespace xa518
