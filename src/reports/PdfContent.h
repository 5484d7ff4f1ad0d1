#pragma once

#include "reports/PageLayout.h"
#include "reports/PdfFont.h"

namespace xa518 {

/// Of an A4 sheet, in the points that PDF counts in.
[[nodiscard]] QSize TamanoPdf(bool apaisado);

/// The letters that a PDF's pages are written in.
struct LetrasPdf {
    LetraPdf normal{false};
    LetraPdf negrita{true};
};

/// What stands on one page of a PDF, as the operators that draw it.
class ContenidoPdf final : private LienzoPagina {
  public:
    ContenidoPdf(LetrasPdf& letras, bool apaisado);

    void Pinta(const Comando& comando) { m_trazado.Pinta(comando); }
    [[nodiscard]] bool Apaisado() const { return m_apaisado; }
    /// Nothing can be drawn any more.
    [[nodiscard]] QByteArray Cierra();

  private:
    /// What is being drawn: the operators of texts and of lines don't mix.
    enum class Tramo { Ninguno, Textos, Rayas };

    MedidasLetra PonLetra(int alto, bool negrita) override;
    void Escribe(QPointF base, QStringView texto, qreal anchura) override;
    void Raya(QPoint desde, QPoint hasta) override;
    void Empieza(Tramo tramo);
    void Termina();
    void AgregaPunto(QPoint punto, const char* operador);
    void PonAnchura(qreal anchura);

    LetrasPdf* m_letras;
    LetraPdf* m_letra;
    bool m_apaisado;
    TrazadoPagina m_trazado;
    QByteArray m_operadores;
    Tramo m_tramo = Tramo::Ninguno;
    qint64 m_x = 0; ///< of the last text, in hundredths of a twip
    qint64 m_y = 0;
    qreal m_anchura = 1;
};

} // namespace xa518
