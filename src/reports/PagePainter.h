#pragma once

#include "reports/PageLayout.h"
#include "reports/SpoolReport.h"

#include <QColor>
#include <QFont>

class QPainter;

namespace xa518 {

/// What to do where there is no letter to print with.
#ifdef Q_OS_WIN
inline constexpr QStringView kComoTenerLetra = u"reponga la carpeta 'fonts' junto al programa";
#else
inline constexpr QStringView kComoTenerLetra = u"instale fonts-liberation";
#endif

/// What lies behind a page on the screen; `ventana` is the desktop's background of windows.
[[nodiscard]] QColor ColorDe(const ColorPagina& color, const QColor& ventana);

/// Paints the commands of a page with a painter, the screen's or a printer's.
class PintorPagina final : private LienzoPagina {
  public:
    /// The painter's page begins at its origin, is `ancho` twips wide, and a twip takes `escala` of its units. It must
    /// outlive this object.
    PintorPagina(QPainter& pintor, qreal escala, int ancho);

    void Pinta(const Comando& comando) { m_trazado.Pinta(comando); }

  private:
    MedidasLetra PonLetra(int alto, bool negrita) override;
    void Escribe(QPointF base, QStringView texto, qreal anchura) override;
    void Raya(QPoint desde, QPoint hasta) override;

    QPainter* m_pintor;
    TrazadoPagina m_trazado;
};

/// Paints a page of a report, from 0, so that its whole sheet takes `ancho` units of the painter.
void PintaPagina(QPainter& pintor, InformeSpool& informe, int pagina, qreal ancho);

/// Where the system brings no letter of fixed width, or the platform sees none of the system's, as Qt's offscreen one
/// on Windows, those of the folder `fonts` beside the program do. To be called with an application object, as often as
/// one likes; the fonts below have it done.
void TraeLetrasDelPrograma();

/// The fixed-pitch font of all reports, "Courier New" or what stands for it with the same widths.
[[nodiscard]] QFont FuenteInforme();
/// The same at a height in twips, and its measures.
[[nodiscard]] QFont FuenteInforme(int alto, bool negrita);
[[nodiscard]] MedidasLetra MedidasDe(const QFont& fuente);

} // namespace xa518
