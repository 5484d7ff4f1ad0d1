#pragma once

#include "launcher/DeclarationList.h"
#include "launcher/Page.h"

#include <memory>

namespace Ui {
class PagRegistradas;
}

namespace xa518 {

/// The registered declarations, and the sending of one.
class PagRegistradas final : public Pagina {
    Q_OBJECT
  public:
    explicit PagRegistradas(const EntornoPagina& entorno, QWidget* padre = nullptr);
    ~PagRegistradas() override;

    void Carga(Base& base) override;

  private:
    [[nodiscard]] QStringList Celdas(const DeclaracionListada& declaracion) const;
    void Envia();
    /// `original` is the copy beside which it would be another original, if any.
    [[nodiscard]] bool Confirma(const DeclaracionListada& declaracion, const QString& original) const;

    std::unique_ptr<Ui::PagRegistradas> m_ui;
    QList<DeclaracionListada> m_lista;
};

} // namespace xa518
