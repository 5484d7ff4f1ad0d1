#pragma once

#include "platform/SystemWindows.h"

#include <QHash>

namespace xa518 {

/// Finds a running program by the title of its main window.
class cWindows {
  public:
    explicit cWindows(VentanasDelSistema& sistema) : m_sistema(&sistema) {}

    /// A visible top-level window has exactly that title, case included.
    [[nodiscard]] bool CorreApp(const QString& titulo);

    /// Asks the window of that class and title to close, unless the title is "Progman". Called by nobody.
    void CloseApp(const QString& titulo, const QString& clase);

    /// The class name, of at most 256 characters, of the window with that title. Called by nobody.
    [[nodiscard]] QString ClassName(const QString& titulo);

  private:
    VentanasDelSistema* m_sistema;
    QHash<QString, Manejador> m_vistas; ///< windows seen by the last search; read by nobody
};

} // namespace xa518
