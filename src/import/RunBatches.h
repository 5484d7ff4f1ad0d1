#pragma once

#include "data/Transaction.h"

#include <QtGlobal>

#include <optional>

namespace xa518 {

class Base;

/// The transactions of a run, one for many lines: a commit per line would be slow, and one for the whole run would keep
/// the other programs out of the base until its end. A trial is a single one that is undone.
class Lotes {
  public:
    /// `transferidas` is the run's count of lines transferred, which must outlive the object.
    Lotes(Base& base, bool prueba, const qint64& transferidas)
        : m_base(&base), m_prueba(prueba), m_transferidas(transferidas) {}

    /// What is written from here on belongs to the trial; does nothing for a real run.
    void Empieza();

    /// Whether the batch has all its lines, so that its rows are to be written before the next one.
    [[nodiscard]] bool EstaLleno() const;
    /// How many lines the batch behind a full one takes.
    [[nodiscard]] qint64 LargoDelSiguiente() const;
    /// Makes a full batch permanent; in a trial it only ends.
    void Termina();

    /// Makes room for a line's rows; true when it is the first of its batch. Raises `ErrorBase` when another program
    /// holds the base.
    [[nodiscard]] bool Linea();

    /// Makes what has been written permanent, or undoes a trial. Without it the rows of the last batch are undone.
    void Cierra();

    /// Undoes the batch, whose rows could only be written in part. No more lines may follow.
    void Abandona();

    /// Closes after an error; false when the rows of the last batch are lost, which the engine may have undone by
    /// itself, as it does on a full disk.
    [[nodiscard]] bool Conserva();

    /// How many lines had been transferred when rows were last made permanent.
    [[nodiscard]] qint64 Conservadas() const { return m_conservadas; }

  private:
    void Abre();

    Base* m_base;
    bool m_prueba;
    std::optional<Transaccion> m_abierta;
    bool m_abandonada = false;
    const qint64& m_transferidas;
    qint64 m_lineas = 0;
    qint64 m_confirmadas = 0; ///< lines in the batches that are ended
    qint64 m_conservadas = 0; ///< of these, the transferred ones
};

} // namespace xa518
