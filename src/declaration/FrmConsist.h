#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class FrmConsist;
}

namespace xa518 {

struct Proceso;

/// Shows the lines of the last validation, out of the file that it wrote.
class FrmConsist : public Forma {
    Q_OBJECT
  public:
    /// Raises `Error` (`AccesoAlDisco`) when `Proceso::rutaMens` can't be read.
    explicit FrmConsist(Proceso& proceso, QWidget* padre = nullptr);
    ~FrmConsist() override;

  private:
    Proceso& m_proceso;
    std::unique_ptr<Ui::FrmConsist> m_ui;
};

} // namespace xa518
