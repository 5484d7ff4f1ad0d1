#pragma once

#include "reports/SpoolReport.h"

#include <QColor>
#include <QFont>
#include <QSize>

class QPainter;

namespace xa518 {

/// Twips of the sheet, A4 upright or lying.
[[nodiscard]] QSize TamanoHoja(bool apaisado);

/// What lies behind a page on the screen; `ventana` is the desktop's background of windows.
[[nodiscard]] QColor ColorDe(const ColorPagina& color, const QColor& ventana);

/// Paints the commands of a page. Screen, printer and PDF only supply the painter, and so show the same.
class PintorPagina {
  public:
    /// The painter's page begins at its origin, is `ancho` twips wide, and a twip takes `escala` of its units. It must
    /// outlive this object.
    PintorPagina(QPainter& pintor, qreal escala, int ancho);

    void Pinta(const Comando& comando);

  private:
    void Texto(const TextoEnPagina& texto);
    void Ajustado(QPointF base, QStringView texto, qreal sitio);
    void Vertical(const TextoEnPagina& texto);
    void Cuadros(const Cuadro& cuadro);
    void PonFuente(int tamano, bool negrita);

    QPainter* m_pintor;
    int m_ancho;
    int m_tamano = 0;
    bool m_negrita = false;
    qreal m_ascenso = 0;
    qreal m_paso = 0; ///< width of a character
};

/// Paints a page of a report, from 0, so that its whole sheet takes `ancho` units of the painter.
void PintaPagina(QPainter& pintor, InformeSpool& informe, int pagina, qreal ancho);

/// The fixed-pitch font of all reports, "Courier New" or what stands for it with the same widths.
[[nodiscard]] QFont FuenteInforme();

} // namespace xa518
