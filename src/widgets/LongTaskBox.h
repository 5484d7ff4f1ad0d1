#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace xa518 {

/// What stands over a window while a long work goes on beside it: what is being done, how far it has come, the time
/// left. Only its button asks to stop; Esc and the box's own close button do nothing.
class CajaDeTarea final : public QDialog {
    Q_OBJECT
  public:
    CajaDeTarea(const QString& titulo, bool seDetiene, QWidget* padre);

    /// `total` 0 for a work whose end can't be told.
    void Muestra(qint64 hecho, qint64 total, qint64 milisegundos);

  Q_SIGNALS:
    void Detener();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    void Detiene();

    QProgressBar* m_barra;
    QLabel* m_falta;
    QPushButton* m_detener;
};

/// "Faltan unos 12 segundos"; empty while there is too little to judge by.
[[nodiscard]] QString LoQueFalta(qint64 hecho, qint64 total, qint64 milisegundos);

} // namespace xa518
