#pragma once

#include <QTableView>

namespace xa518 {

/// A grid of rows to look at and to choose from: whole rows, one at a time, nothing to type in. Tab leaves it.
class GrillaDeLectura : public QTableView {
    Q_OBJECT
  public:
    explicit GrillaDeLectura(QWidget* padre = nullptr);

    void setModel(QAbstractItemModel* modelo) override;

    /// The current row, -1 when there is none.
    [[nodiscard]] int Fila() const { return currentIndex().row(); }
    /// Makes it the current row; the first one when there are fewer.
    void PonFila(int fila);

    /// Each column as wide as its title and what shows now; `principal`, where the person reads, takes what is left,
    /// but never less than its title. Where the room is scarce they stand closer.
    void AjustaColumnas(int principal);

  Q_SIGNALS:
    /// A double click on a row, or Enter.
    void FilaActivada(int fila);
    /// Another row became the current one, -1 for none.
    void FilaCambiada(int fila);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& celda,
                                                                       const QEvent* evento) const override;

  private:
    void ReparteAncho();

    int m_principal = -1; ///< the column that takes what is left
};

} // namespace xa518
