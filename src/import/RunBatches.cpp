#include "import/RunBatches.h"

#include "data/Base.h"

#include <algorithm>

namespace xa518 {

namespace {

constexpr qint64 kLoteMinimo = 10'000;
constexpr qint64 kLoteMaximo = 100'000;

/// A batch is as long as all before it. Clients come in no order, so that each batch writes most pages of the indexes
/// again: with short ones to the end, what is written would grow with the square of the lines.
qint64 LargoTras(qint64 lineas) {
    return std::clamp(lineas, kLoteMinimo, kLoteMaximo);
}

} // namespace

void Lotes::Empieza() {
    if (m_prueba)
        Abre();
}

bool Lotes::EstaLleno() const {
    return m_lineas == m_confirmadas + LargoTras(m_confirmadas);
}

qint64 Lotes::LargoDelSiguiente() const {
    return LargoTras(m_lineas);
}

void Lotes::Termina() {
    if (!m_prueba)
        Cierra();
    m_confirmadas = m_lineas;
}

bool Lotes::Linea() {
    const bool primera = m_lineas == m_confirmadas;
    Abre();
    ++m_lineas;
    return primera;
}

void Lotes::Abre() {
    if (!m_abierta)
        m_abierta.emplace(m_base->Comienza(Turno::Propio));
}

void Lotes::Cierra() {
    if (m_abierta && !m_prueba)
        m_abierta->Confirma();
    m_abierta.reset();
    m_confirmadas = m_lineas;
    m_conservadas = m_transferidas;
}

void Lotes::Abandona() {
    m_abierta.reset();
    m_abandonada = true;
}

bool Lotes::Conserva() {
    if (m_abandonada)
        return m_prueba; // where nothing was to be kept
    try {
        Cierra();
    } catch (const Error&) {
        return false;
    }
    return true;
}

} // namespace xa518
