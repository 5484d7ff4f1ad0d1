#pragma once

#include "import/FaultTable.h"
#include "import/RefusedLines.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryFile>

#include <memory>
#include <optional>
#include <vector>

namespace xa518 {

struct FormatoImportacion;

enum class EstadoDeLinea : quint8 {
    Rechazada, ///< put right or not
    Pasa,      ///< a trial had nothing against it, and it isn't imported yet
    Importada,
};

/// Which of the lines are looked at.
struct FiltroDeLineas {
    enum class Clase { Rechazadas, DeUnaFalla, QuePasan };
    Clase clase = Clase::Rechazadas;
    quint16 falla = 0; ///< its number, with `DeUnaFalla`

    bool operator==(const FiltroDeLineas&) const = default;
};

/// A fault that lines still have.
struct GrupoDeFalla {
    quint16 falla = 0;
    int lineas = 0;
};

/// What a run said of one of the lines.
struct VeredictoDeLinea {
    int cual = 0;
    std::optional<FallaDeLinea> falla; ///< nothing for a line that passed
};

/// A field of one of these lines, both from 0.
struct CeldaDeLinea {
    int cual;
    int campo;
};

/// The refused lines of a file while a person puts them right: how each stands now, and what is still wrong with it. A
/// line goes by its place among them, from 0; its text is the whole line as it would stand in the file. Reading is safe
/// in another thread while nothing is changed.
class Correccion {
  public:
    /// `original` is the file that they come from when nothing of it has been imported, so that they belong among its
    /// other lines; empty when those are in the tables.
    Correccion(std::shared_ptr<const LineasRechazadas> lineas, const FormatoImportacion& formato,
               QString original = {});

    [[nodiscard]] const FormatoImportacion& Formato() const { return m_formato; }
    [[nodiscard]] const LineasRechazadas& Originales() const { return *m_originales; }

    [[nodiscard]] const QString& Original() const { return m_original; }
    /// Copies the original before another file takes its place. Raises `Error`.
    void ConservaOriginal();

    [[nodiscard]] int Cuantas() const { return m_originales->Cuantas(); }
    [[nodiscard]] qint64 Numero(int cual) const { return m_originales->Numero(cual); }
    [[nodiscard]] EstadoDeLinea Estado(int cual) const { return De(cual).estado; }
    [[nodiscard]] const FallaDeLinea& Falla(int cual) const { return m_fallas[De(cual).falla]; }
    [[nodiscard]] const FallaDeLinea& FallaNumero(quint16 numero) const { return m_fallas[numero]; }
    [[nodiscard]] QString Texto(int cual) const;
    [[nodiscard]] bool EstaCorregida(int cual) const { return m_textos.contains(cual); }
    [[nodiscard]] bool EstaCorregida(int cual, int celda) const;

    /// The fields of a text, as they stand, one for each of the format, and behind them what goes beyond the last.
    [[nodiscard]] QStringList Celdas(const QString& texto) const;

    void PonTexto(int cual, const QString& texto);
    /// A line with too few fields gets the others empty.
    void PonCelda(const CeldaDeLinea& celda, const QString& valor);
    /// As the line stood in the file.
    void Restaura(int cual);
    void RestauraTodas();

    /// The other lines with the fault of this one in the same field, but those where that field has been put right.
    [[nodiscard]] QList<int> ConLaMismaFalla(int cual) const;

    [[nodiscard]] QList<int> Lineas(const FiltroDeLineas& filtro) const;
    /// The lines that a run over those of the filter takes: with all the refused ones go those that pass.
    [[nodiscard]] QList<int> PorCorrer(const FiltroDeLineas& filtro) const;
    /// Of the lines that are refused, those with most lines first.
    [[nodiscard]] QList<GrupoDeFalla> Grupos() const;
    [[nodiscard]] int Cuantas(EstadoDeLinea estado) const;

    void Anota(const QList<VeredictoDeLinea>& veredictos, bool prueba);

    /// How many lines were put right that are neither imported nor saved.
    [[nodiscard]] int PorPerder() const { return m_guardadas ? 0 : static_cast<int>(m_textos.size()); }
    void PonGuardadas() { m_guardadas = true; }

  private:
    struct Linea {
        quint16 falla;
        EstadoDeLinea estado;
    };

    [[nodiscard]] const Linea& De(int cual) const { return m_lineas[static_cast<size_t>(cual)]; }
    [[nodiscard]] Linea& De(int cual) { return m_lineas[static_cast<size_t>(cual)]; }
    [[nodiscard]] bool EsDe(int cual, const FiltroDeLineas& filtro) const;

    std::shared_ptr<const LineasRechazadas> m_originales;
    const FormatoImportacion& m_formato;
    QString m_original;
    QTemporaryFile m_copia; ///< of the original, once another file has taken its place
    std::vector<Linea> m_lineas;
    TablaDeFallas m_fallas;
    QHash<int, QByteArray> m_textos; ///< UTF-8, of the lines that were put right and aren't imported
    bool m_guardadas = false;        ///< nothing was changed since they were saved
};

} // namespace xa518
