#pragma once

#include "reports/PageCommands.h"

#include <functional>

namespace xa518 {

/// Writes a report: running lines, which turn the page by themselves, and texts and boxes at their places.
class EscritorInforme {
  public:
    /// The width, in characters, decides how many running lines a page takes.
    EscritorInforme(DestinoInforme& destino, int anchoReporte) : m_destino(&destino), m_ancho(anchoReporte) {}

    void PonAncho(int anchoReporte) { m_ancho = anchoReporte; }
    /// Called after every turn that a running line causes.
    void PonCabecera(std::function<void()> cabecera) { m_cabecera = std::move(cabecera); }

    /// Called after every page that ends.
    void PonAvance(AvanceHojas avance) { m_avance = std::move(avance); }

    /// The next running line: font size 8, not bold, 175 twips under the line before. It counts towards the page.
    void ImprimeLinea(const QString& texto);
    /// A tag among the running lines: it counts as one on every page and is written on the first alone: wanted,
    /// the pages turn where they always did.
    void ImprimeEtiqueta(const Etiqueta& etiqueta);
    /// A tag ahead of the report: it counts as nothing.
    void Encabeza(const Etiqueta& etiqueta) { m_destino->Recibe(etiqueta); }

    /// A text or a box of the page at hand; neither counts as a line, and no page turns for them.
    void ImprimePos(int x, int y, const QString& texto, int tamano = kTamanoLinea, bool negrita = false);
    void ImprimeCuadro(int x1, int y1, int x2, int y2);

    /// Ends the page. The lines of the next one count from 0, from its top.
    void NuevaPagina();

    /// From 1.
    [[nodiscard]] int PaginaActual() const { return m_paginaActual; }

  private:
    static constexpr int kTamanoLinea = 8;

    void CuentaLinea();
    [[nodiscard]] int LimitePagina() const;

    DestinoInforme* m_destino;
    std::function<void()> m_cabecera;
    AvanceHojas m_avance;
    int m_ancho;
    int m_filaActual = 0;
    int m_posY = 0;
    int m_paginaActual = 1;
};

/// A line that parts are laid onto, each at its own column, counted from 1. A part covers what lies under it.
class LineaCompuesta {
  public:
    LineaCompuesta& Pon(int columna, const QString& texto);
    /// Ends at the column, included.
    LineaCompuesta& PonHasta(int columna, const QString& texto);
    /// In the middle of a width, blanks on its left alone.
    LineaCompuesta& PonCentrado(const QString& texto, int ancho);
    [[nodiscard]] const QString& Texto() const { return m_texto; }

  private:
    QString m_texto;
};

} // namespace xa518
