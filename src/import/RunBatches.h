#pragma once

#include "data/Transaction.h"

#include <optional>

namespace xa518 {

class Base;

/// The transactions of a run, one for many lines: a commit per line would be slow, and one for the whole run would keep
/// the other programs out of the base until its end.
class Lotes {
  public:
    explicit Lotes(Base& base) : m_base(&base) {}

    /// Makes room for a line's rows; raises `ErrorBase` when another program holds the base.
    void Linea();

    /// Makes what has been written permanent. Without it the rows of the last batch are undone.
    void Cierra();

  private:
    Base* m_base;
    std::optional<Transaccion> m_abierta;
    int m_lineas = 0;
};

} // namespace xa518
