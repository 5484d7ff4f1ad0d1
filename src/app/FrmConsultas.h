#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class FrmConsultas;
}

namespace xa518 {

struct Proceso;

/// A list of the catalogue, to be read: of the kind in `Proceso::tipoConsulta`. "B" is the banks; any other is empty.
class FrmConsultas final : public Forma {
    Q_OBJECT
  public:
    explicit FrmConsultas(Proceso& proceso, QWidget* padre = nullptr);
    ~FrmConsultas() override;

  private:
    std::unique_ptr<Ui::FrmConsultas> m_ui;
};

} // namespace xa518
