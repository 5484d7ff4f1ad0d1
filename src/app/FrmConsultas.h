#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class FrmConsultas;
}

namespace xa518 {

class Base;

/// A list of the catalogue, to be read. The kind "B" is the banks; any other is empty.
class FrmConsultas final : public Forma {
    Q_OBJECT
  public:
    FrmConsultas(Base& base, QStringView tipo, QWidget* padre = nullptr);
    ~FrmConsultas() override;

  private:
    std::unique_ptr<Ui::FrmConsultas> m_ui;
};

} // namespace xa518
