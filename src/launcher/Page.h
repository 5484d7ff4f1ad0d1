#pragma once

#include <QWidget>

#include <exception>
#include <functional>

class QPushButton;

namespace xa518 {

class Avisos;
class Base;
class Error;
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
    /// Why what writes can't be used; empty when it can. Before `Carga`.
    void PonSinEscritura(const QString& motivo) { m_sinEscritura = motivo; }

  Q_SIGNALS:
    void Cambio(); ///< the base may hold something else now

  protected:
    /// A handler that tells a failure in words and ends with `Cambio`.
    [[nodiscard]] std::function<void()> Accion(std::function<void()> trabajo);

    /// Tells a failure in words.
    void Cuenta(const Error& error) const;
    /// The same of a work beside the window's thread, and ends with `Cambio`.
    [[nodiscard]] std::function<void(const std::exception_ptr&)> AlFallar();

    /// Enables a button that writes, or greys it with the reason.
    void Habilita(QPushButton& boton, bool si) const;

    [[nodiscard]] Sesion& LaSesion() const { return m_entorno.sesion; }
    /// A row with the form's cell behind it, where the launcher serves more than one: with a single one it tells
    /// nothing.
    [[nodiscard]] QStringList ConFormulario(QStringList celdas, const QString& formulario) const;
    [[nodiscard]] Avisos& LosAvisos() const { return m_entorno.avisos; }

  private:
    EntornoPagina m_entorno;
    QString m_sinEscritura;
};

} // namespace xa518
