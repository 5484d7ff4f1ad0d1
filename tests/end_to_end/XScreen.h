#pragma once

#include <QProcess>
#include <QString>

struct xcb_connection_t;

namespace xa518::prueba {

/// A bare X server of its own, on which the programs under test show their windows.
class PantallaX {
  public:
    PantallaX() = default;
    PantallaX(const PantallaX&) = delete;
    PantallaX& operator=(const PantallaX&) = delete;
    ~PantallaX();

    /// Starts the server and points this process and the programs that it starts to it; false when it doesn't come up.
    [[nodiscard]] bool Enciende();

    /// Puts up a window with that title, which does nothing.
    void PonVentana(const QString& titulo);

  private:
    QProcess m_servidor;
    xcb_connection_t* m_conexion = nullptr;
};

} // namespace xa518::prueba
