#pragma once

#include "reports/PageCommands.h"
#include "values/Message.h"

#include <QIODevice>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace xa518 {

/// The colour behind a page, as the literal of a spool file gives it: "&H00bbggrr&", or "&H800000nn&" for a colour of
/// the desktop, of which 5 is the background of windows.
struct ColorPagina {
    bool delSistema = false;
    int indice = 0;
    int rojo = 255;
    int verde = 255;
    int azul = 255;

    /// White for a text that is no such literal.
    [[nodiscard]] static ColorPagina Lee(QStringView literal);
    bool operator==(const ColorPagina&) const = default;
};

/// What the tags of a report say.
struct CabeceraInforme {
    QString fuente; ///< read, but texts always show in "Courier New": wanted, columns are reckoned in it
    int hojas = 0;
    bool apaisado = false;
    ColorPagina color;

    void Toma(const Etiqueta& etiqueta);
};

/// The pages of a print job, from 1. It limits printing alone: the preview shows them all.
struct RangoPaginas {
    bool usar = false;
    int desde = 1;
    int hasta = std::numeric_limits<int>::max();

    /// `pagina` counts from 0.
    [[nodiscard]] bool Incluye(int pagina) const { return !usar || (pagina + 1 >= desde && pagina + 1 <= hasta); }
    /// Whether it takes any page of a report of so many.
    [[nodiscard]] bool Alcanza(int paginas) const { return !usar || desde <= paginas; }
};

/// A spool file open for reading. It keeps where each page lies, never what it holds: the pages are read when asked
/// for, so that thousands of them open at once. It survives any file: what it can't understand it passes over.
class InformeSpool {
  public:
    /// Pages past this many are passed over: no report has them.
    static constexpr int kPaginasMaximas = 100'000;

    using Visita = std::function<void(const Comando&)>;

    /// Raises `Error` (`ArchivoNoEncontrado`, `AccesoAlDisco`).
    [[nodiscard]] static std::unique_ptr<InformeSpool> Abre(const QString& ruta);
    explicit InformeSpool(std::unique_ptr<QIODevice> entrada);

    [[nodiscard]] const CabeceraInforme& Cabecera() const { return m_cabecera; }
    /// The highest page that a command stands on, from 1; what the head says of their number is often an estimate.
    [[nodiscard]] int Paginas() const;

    /// Hands out the commands of a page, from 0, in the file's order.
    void RecorrePagina(int pagina, const Visita& visita);

    /// Hands a print job to its destination. A page outside the range is passed over, and with it its end, so that
    /// a job of one page takes one sheet.
    void Imprime(const RangoPaginas& rango, DestinoInforme& destino);

  private:
    struct Tramo {
        qint64 desde = 0;
        qint64 hasta = 0;
    };

    void Indexa();
    [[nodiscard]] qint64 FinDe(const RangoPaginas& rango) const;
    void Anota(int pagina, qint64 desde, qint64 hasta);

    std::unique_ptr<QIODevice> m_entrada;
    CabeceraInforme m_cabecera;
    std::vector<Tramo> m_paginas;
};

/// The number of pages that the head of a spool file tells; 0 when it tells none.
/// Raises `Error` (`ArchivoNoEncontrado`, `AccesoAlDisco`).
[[nodiscard]] int LeeNumeroHojas(const QString& ruta);

/// The same, and nothing when the file can't be read.
[[nodiscard]] std::optional<int> NumeroDeHojasDe(const QString& ruta);

/// The pages that a spool file really has, from 1: reports are written page by page, so that the file's end tells.
/// Nothing when the file can't be read.
[[nodiscard]] std::optional<int> PaginasDe(const QString& ruta);

/// Refused, with its message, when the spool file is missing.
[[nodiscard]] Veredicto ValidaArchivoInforme(const QString& ruta);

} // namespace xa518
