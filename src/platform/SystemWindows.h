#pragma once

#include <QList>
#include <QString>

#include <memory>

namespace xa518 {

/// A window of the window system, whoever's it is.
using Manejador = quintptr;

/// The top-level windows of the whole session, as the window system tells them.
class VentanasDelSistema {
  public:
    VentanasDelSistema() = default;
    VentanasDelSistema(const VentanasDelSistema&) = delete;
    VentanasDelSistema& operator=(const VentanasDelSistema&) = delete;
    virtual ~VentanasDelSistema() = default;

    /// Every top-level window, hidden ones included, in the window system's order.
    [[nodiscard]] virtual QList<Manejador> Superiores() = 0;
    /// A minimised window counts as visible. False for a window that is gone.
    [[nodiscard]] virtual bool EsVisible(Manejador ventana) = 0;
    /// The whole title; empty when there is none.
    [[nodiscard]] virtual QString Titulo(Manejador ventana) = 0;
    [[nodiscard]] virtual QString Clase(Manejador ventana) = 0;
    /// Asks the window's owner to close it, as its close button does.
    virtual void PideCierre(Manejador ventana) = 0;
};

/// The real ones: Windows' own calls there, X11 elsewhere (on a Wayland session the X server that it brings along).
/// Without a window system there are no windows.
[[nodiscard]] std::unique_ptr<VentanasDelSistema> VentanasReales();

/// Makes a program on a Wayland session use the X server that the session brings along, because a Wayland window
/// can't be found by its title. To be called before the application object is made; a platform chosen by the user
/// stays.
void PrefiereX11();

} // namespace xa518
