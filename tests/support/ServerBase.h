#pragma once

#include <QString>

#include <memory>

namespace xa518 {
class Base;
}

namespace xa518::prueba {

/// A database of the tests' own server, dropped with the object. The server is named by the text of a connection in the
/// variable XA518_TEST_SERVER; without it the tests work on files.
class BaseEnServidor {
  public:
    /// With the shipped tables and nothing in them; none without a server.
    [[nodiscard]] static std::unique_ptr<BaseEnServidor> ConTablas();
    /// With nothing at all.
    [[nodiscard]] static std::unique_ptr<BaseEnServidor> Vacia();

    BaseEnServidor(const BaseEnServidor&) = delete;
    BaseEnServidor& operator=(const BaseEnServidor&) = delete;
    ~BaseEnServidor();

    /// The text of a connection to it.
    [[nodiscard]] QString Texto() const;

  private:
    explicit BaseEnServidor(const QString& plantilla);
    QString m_nombre;
};

[[nodiscard]] bool HayServidorDePrueba();
/// A statement on the server's own database: what another program does there.
void PideAlServidor(const QString& sql);
/// As an administrator ends a connection, or a fall of the line.
void CortaLaConexion(Base& base);

} // namespace xa518::prueba
