#pragma once

#include "reports/SpoolReport.h"

#include <QCache>
#include <QPixmap>
#include <QWidget>

namespace xa518 {

/// The dark ground of the preview, `picFondo`, with the page on show. A page becomes a picture when it first shows, so
/// that a report of thousands of pages opens at once; the pictures seen last are kept.
class FondoVista final : public QWidget {
    Q_OBJECT
  public:
    explicit FondoVista(QWidget* padre = nullptr);

    /// The report must outlive its use; none shows an empty sheet.
    void PonInforme(InformeSpool* informe);
    void PonPagina(int pagina);
    /// 1 for the size of the paper.
    void PonEscala(qreal escala);
    /// Left and top of the page, as the negative of the bars' values; a page smaller than the ground stands in its
    /// middle.
    void PonDesplazamiento(QPoint desplazamiento);

    [[nodiscard]] qreal Escala() const { return m_escala; }
    /// Of the page on show.
    [[nodiscard]] QSize TamanoPagina() const { return TamanoA(m_escala); }
    /// The scale at which a page fits in the ground's width, or whole.
    [[nodiscard]] qreal EscalaDeAncho() const;
    [[nodiscard]] qreal EscalaDePagina() const;

  Q_SIGNALS:
    void Redimensionado();

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    [[nodiscard]] QSize TamanoA(qreal escala) const;
    [[nodiscard]] QRect Sitio() const;
    [[nodiscard]] QPixmap Figura();
    [[nodiscard]] QPixmap Dibuja() const;

    InformeSpool* m_informe = nullptr;
    int m_pagina = 0;
    qreal m_escala = 1;
    QPoint m_desplazamiento;
    QCache<int, QPixmap> m_figuras; ///< `picPrevia`, by page
};

} // namespace xa518
