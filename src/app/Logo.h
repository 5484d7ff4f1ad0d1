#pragma once

#include <QWidget>

class QPainter;

namespace xa518 {

/// The module's logo, as large as its place allows.
class Logo final : public QWidget {
    Q_OBJECT
  public:
    explicit Logo(QWidget* padre = nullptr);

    static void Pinta(QPainter& pintor, const QRectF& sitio);

    [[nodiscard]] QSize sizeHint() const override { return {160, 160}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

} // namespace xa518
