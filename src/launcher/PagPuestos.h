#pragma once

#include "data/Seats.h"
#include "launcher/Page.h"

#include <memory>

namespace Ui {
class PagPuestos;
}

namespace xa518 {

/// The seats of a base on a server: who works where and since when, what is open, and those that were left behind,
/// which can be cleared.
class PagPuestos final : public Pagina {
    Q_OBJECT
  public:
    explicit PagPuestos(const EntornoPagina& entorno, QWidget* padre = nullptr);
    ~PagPuestos() override;

    void Carga(Base& base) override;

  private:
    [[nodiscard]] static QStringList Celdas(const Puesto& puesto);
    void ActualizaBotones();
    void Quita();

    std::unique_ptr<Ui::PagPuestos> m_ui;
    QList<Puesto> m_lista;
};

} // namespace xa518
