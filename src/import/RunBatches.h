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

    /// Makes room for a line's rows; raises `ErrorBase` when another program holds the base.
    void Linea();

    /// Makes what has been written permanent, or undoes a trial. Without it the rows of the last batch are undone.
    void Cierra();

    /// The same after an error; false when the rows of the last batch are lost, which the engine may have undone by
    /// itself, as it does on a full disk.
    [[nodiscard]] bool Conserva();

    /// How many lines had been transferred when rows were last made permanent.
    [[nodiscard]] qint64 Conservadas() const { return m_conservadas; }

  private:
    void Abre();

    Base* m_base;
    bool m_prueba;
    std::optional<Transaccion> m_abierta;
    const qint64& m_transferidas;
    qint64 m_lineas = 0;
    qint64 m_confirmadas = 0; ///< lines in the batches that are permanent
    qint64 m_conservadas = 0; ///< of these, the transferred ones
};

} // namespace xa518
