#pragma once

#include "launcher/DeclarationList.h"
#include "launcher/Page.h"

#include <memory>

namespace Ui {
class PagEnviadas;
}

namespace xa518 {

/// The sent copies of declarations: look at them, rectify one.
class PagEnviadas final : public Pagina {
    Q_OBJECT
  public:
    explicit PagEnviadas(const EntornoPagina& entorno, QWidget* padre = nullptr);
    ~PagEnviadas() override;

    void Carga(Base& base) override;

  Q_SIGNALS:
    /// A declaration is to be begun that rectifies that copy.
    void Rectifica(const ClaveDeclaracion& copia);

  private:
    [[nodiscard]] QStringList Celdas(const DeclaracionListada& declaracion) const;
    void PideRectificar();

    std::unique_ptr<Ui::PagEnviadas> m_ui;
    QList<DeclaracionListada> m_lista;
};

} // namespace xa518
