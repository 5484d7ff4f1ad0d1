#pragma once

#include "app/FormaSeleccion.h"

namespace xa518 {

/// Lists the registered declarations, to modify or delete one.
class FrmContAbrir final : public FormaSeleccion {
    Q_OBJECT
  public:
    explicit FrmContAbrir(const Entorno& entorno, QWidget* padre = nullptr);

  protected:
    [[nodiscard]] bool DejaPasar(const QKeyEvent& tecla) const override;
    void PulsaCabecera(int columna) override;
};

} // namespace xa518
