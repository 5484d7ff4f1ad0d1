#pragma once

#include "app/FormaSeleccion.h"

namespace xa518 {

/// Lists the registered declarations, to modify or delete one.
class FrmContAbrir final : public FormaSeleccion {
    Q_OBJECT
  public:
    FrmContAbrir(const Entorno& entorno, OpcionDeLista opcion, QWidget* padre = nullptr);

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void Ordena(int columna);
};

} // namespace xa518
