#pragma once

#include <QtGlobal>

#include <utility>

namespace xa518 {

class Avance;
class Base;

/// While it lives, the work of this thread on a base is followed by `avance`, and may be stopped by it in the middle of
/// a statement, however long that takes: the statement then ends with `Detenido`.
class TrabajoSeguido {
  public:
    /// `total` rows are to be written or taken away.
    TrabajoSeguido(Base& base, Avance& avance, qint64 total);
    TrabajoSeguido(const TrabajoSeguido&) = delete;
    TrabajoSeguido& operator=(const TrabajoSeguido&) = delete;
    ~TrabajoSeguido();

  private:
    friend class Base;
    /// Asked by the engine again and again while a statement runs; it tells how many rows it has changed.
    [[nodiscard]] bool Sigue(qint64 filas) noexcept;
    /// Whether the statement that has just failed was stopped. Those that undo the work fail by themselves.
    [[nodiscard]] bool TomaElCorte() { return std::exchange(m_corte, false); }

    Base* m_base;
    Avance* m_avance;
    qint64 m_total;
    bool m_detenido = false;
    bool m_corte = false; ///< asked for, and no statement has ended of it yet
};

} // namespace xa518
