#include "import/RunBatches.h"

#include "data/Base.h"

namespace xa518 {

namespace {

constexpr int kLineasPorLote = 10000; // under half a second, so that another writer waits and isn't refused

} // namespace

void Lotes::Empieza() {
    if (m_prueba)
        Abre();
}

void Lotes::Linea() {
    if (m_lineas == kLineasPorLote && !m_prueba)
        Cierra();
    Abre();
    ++m_lineas;
}

void Lotes::Abre() {
    if (!m_abierta)
        m_abierta.emplace(m_base->Comienza());
}

void Lotes::Cierra() {
    if (m_abierta && !m_prueba)
        m_abierta->Confirma();
    m_abierta.reset();
    m_lineas = 0;
}

} // namespace xa518
