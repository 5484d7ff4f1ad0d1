#pragma once

#include "reports/PageCommands.h"

#include <QPointF>
#include <QSize>

namespace xa518 {

/// Twips of the sheet, A4 upright or lying.
[[nodiscard]] QSize TamanoHoja(bool apaisado);

/// Of a fixed-width letter at a height, in twips.
struct MedidasLetra {
    qreal ascenso = 0;
    qreal paso = 0; ///< width of a character
};

/// What a page is drawn on. Places are twips from where reports begin, to the right and downward.
class LienzoPagina {
  public:
    LienzoPagina() = default;
    LienzoPagina(const LienzoPagina&) = delete;
    LienzoPagina& operator=(const LienzoPagina&) = delete;
    virtual ~LienzoPagina() = default;

    /// The letter of the texts that follow, its height in twips.
    virtual MedidasLetra PonLetra(int alto, bool negrita) = 0;
    /// The text's base line begins at `base`; its letters take `anchura` times their own width.
    virtual void Escribe(QPointF base, QStringView texto, qreal anchura) = 0;
    virtual void Raya(QPoint desde, QPoint hasta) = 0;
};

/// Lays the commands of a page out. Screen, printer and PDF only supply what it is drawn on, and so show the same.
class TrazadoPagina {
  public:
    /// Reports begin at the very edge, where no printer prints: a quarter of an inch keeps them on the paper, and
    /// nearly in its middle.
    static constexpr int kMargen = 360;
    static constexpr int kGrosor = 8; ///< of the boxes' lines

    /// The sheet is `ancho` twips wide. The canvas must outlive this object.
    TrazadoPagina(LienzoPagina& lienzo, int ancho) : m_lienzo(&lienzo), m_ancho(ancho) {}

    void Pinta(const Comando& comando);

  private:
    void Texto(const TextoEnPagina& texto);
    void Ajustado(QPointF base, QStringView texto, qreal sitio);
    void Vertical(const TextoEnPagina& texto);
    void Lados(const Cuadro& cuadro);
    void PonLetra(int tamano, bool negrita);

    LienzoPagina* m_lienzo;
    int m_ancho;
    int m_tamano = 0;
    bool m_negrita = false;
    MedidasLetra m_medidas;
};

} // namespace xa518
