#include "import/FaultTable.h"

#include <algorithm>

namespace xa518 {

quint16 TablaDeFallas::NumeroDe(const FallaDeLinea& falla) {
    if (m_ultima < m_fallas.size() && m_fallas[m_ultima] == falla)
        return static_cast<quint16>(m_ultima);
    const auto hallada = std::find(m_fallas.cbegin(), m_fallas.cend(), falla);
    m_ultima = static_cast<size_t>(hallada - m_fallas.cbegin());
    if (hallada == m_fallas.cend())
        m_fallas.push_back(falla);
    return static_cast<quint16>(m_ultima);
}

} // namespace xa518
