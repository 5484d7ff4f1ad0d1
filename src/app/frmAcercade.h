#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmAcercade;
}

namespace xa518 {

/// The box that tells what this program is, and under which licences stands what it is made of.
class frmAcercade final : public Forma {
    Q_OBJECT
  public:
    explicit frmAcercade(QWidget* padre = nullptr);
    ~frmAcercade() override;

  private:
    void MuestraLicencias();

    std::unique_ptr<Ui::frmAcercade> m_ui;
};

} // namespace xa518
