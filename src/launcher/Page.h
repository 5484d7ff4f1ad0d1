#pragma once

#include <QWidget>

#include <functional>

namespace xa518 {

class Avisos;
class Base;
class Sesion;

/// What every page of the launcher's window works with.
struct EntornoPagina {
    Sesion& sesion;
    Avisos& avisos;
};

/// A page of the launcher's window: a list and the buttons that act on its chosen row.
class Pagina : public QWidget {
    Q_OBJECT
  public:
    Pagina(const EntornoPagina& entorno, QWidget* padre);

    /// Shows what the base holds now. Raises `Error`.
    virtual void Carga(Base& base) = 0;

  Q_SIGNALS:
    void Cambio(); ///< the base may hold something else now

  protected:
    /// A handler that tells a failure in words and ends with `Cambio`.
    [[nodiscard]] std::function<void()> Accion(std::function<void()> trabajo);

    [[nodiscard]] Sesion& LaSesion() const { return m_entorno.sesion; }
    /// A row with the form's cell behind it, where the launcher serves more than one: with a single one it tells
    /// nothing.
    [[nodiscard]] QStringList ConFormulario(QStringList celdas, const QString& formulario) const;
    [[nodiscard]] Avisos& LosAvisos() const { return m_entorno.avisos; }

  private:
    EntornoPagina m_entorno;
};

} // namespace xa518
