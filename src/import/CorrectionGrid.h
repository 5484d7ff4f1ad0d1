#pragma once

#include <QTableView>

namespace xa518 {

/// A grid whose cells are typed in: any key, Enter or F2 begins, Enter, Esc and leaving the cell keep what was typed.
/// The arrows go from cell to cell, Tab leaves the grid.
class GrillaDeCorreccion final : public QTableView {
    Q_OBJECT
  public:
    explicit GrillaDeCorreccion(QWidget* padre = nullptr);

    /// Keeps what is being typed in a cell, as leaving it would.
    void Asienta();

    /// Each column as wide as its title and what shows now, within bounds.
    void AjustaColumnas();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
};

} // namespace xa518
