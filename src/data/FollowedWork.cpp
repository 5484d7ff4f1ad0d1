#include "data/FollowedWork.h"

#include "data/Base.h"
#include "values/Progress.h"

#include <algorithm>

namespace xa518 {

TrabajoSeguido::TrabajoSeguido(Base& base, Avance& avance, qint64 total)
    : m_base(&base), m_avance(&avance), m_total(total) {
    m_base->PonSeguido(this);
}

TrabajoSeguido::~TrabajoSeguido() {
    m_base->PonSeguido(nullptr);
}

bool TrabajoSeguido::Sigue(qint64 filas) noexcept {
    if (m_detenido)
        return true; // once is enough: what undoes the work runs to its end
    try {
        m_avance->Va(std::min(filas, m_total), m_total);
    } catch (const Detenido&) {
        m_detenido = m_corte = true;
    }
    return !m_detenido;
}

} // namespace xa518
