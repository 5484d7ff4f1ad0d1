#pragma once

#include "data/Transaction.h"

#include <optional>

namespace xa518 {

class Base;

/// The transactions of a run, one for many lines: a commit per line would be slow, and one for the whole run would keep
/// the other programs out of the base until its end. A trial is a single one that is undone.
class Lotes {
  public:
    Lotes(Base& base, bool prueba) : m_base(&base), m_prueba(prueba) {}

    /// What is written from here on belongs to the trial; does nothing for a real run.
    void Empieza();

    /// Makes room for a line's rows; raises `ErrorBase` when another program holds the base.
    void Linea();

    /// Makes what has been written permanent, or undoes a trial. Without it the rows of the last batch are undone.
    void Cierra();

  private:
    void Abre();

    Base* m_base;
    bool m_prueba;
    std::optional<Transaccion> m_abierta;
    int m_lineas = 0;
};

} // namespace xa518
