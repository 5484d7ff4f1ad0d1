#pragma once

#include "app/FormaSeleccion.h"

namespace xa518 {

/// Lists the sent declarations, to register the order number of one or to delete it.
class FrmContAbrirE final : public FormaSeleccion {
    Q_OBJECT
  public:
    explicit FrmContAbrirE(const Entorno& entorno, QWidget* padre = nullptr);

  protected:
    [[nodiscard]] DeclaracionElegida Elegida(int fila) const override;
    [[nodiscard]] ClaveDeclaracion Clave(int fila) const override;
    void TomaFila(int fila) override;
    void AlActivar() override;

  private:
    bool m_vista = false;
};

} // namespace xa518
