#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class FrmConsist;
}

namespace xa518 {

/// Shows the lines of the last validation, out of the file that it wrote.
class FrmConsist : public Forma {
    Q_OBJECT
  public:
    /// Raises `Error` (`AccesoAlDisco`) when the file can't be read.
    explicit FrmConsist(const QString& rutaMens, QWidget* padre = nullptr);
    ~FrmConsist() override;

  private:
    std::unique_ptr<Ui::FrmConsist> m_ui;
};

} // namespace xa518
