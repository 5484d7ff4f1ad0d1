#pragma once

#include "app/FormaSeleccion.h"

namespace xa518 {

/// Lists the sent declarations, to register the order number of one or to delete it.
class FrmContAbrirE final : public FormaSeleccion {
    Q_OBJECT
  public:
    FrmContAbrirE(const Entorno& entorno, OpcionDeLista opcion, QWidget* padre = nullptr);

  protected:
    [[nodiscard]] DeclaracionElegida Elegida(int fila) const override;
    void AlActivar() override;

  private:
    bool m_vista = false;
};

} // namespace xa518
