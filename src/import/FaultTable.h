#pragma once

#include "import/RefusedLine.h"

#include <vector>

namespace xa518 {

/// The few different faults of many lines, each under a number from 0, so that a line keeps two bytes of it.
class TablaDeFallas {
  public:
    [[nodiscard]] quint16 NumeroDe(const FallaDeLinea& falla);
    [[nodiscard]] const FallaDeLinea& operator[](quint16 numero) const { return m_fallas[numero]; }
    [[nodiscard]] qsizetype Cuantas() const { return static_cast<qsizetype>(m_fallas.size()); }

  private:
    std::vector<FallaDeLinea> m_fallas;
    size_t m_ultima = 0; ///< found last: many lines in a row have the same
};

} // namespace xa518
