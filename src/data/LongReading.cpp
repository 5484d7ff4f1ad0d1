#include "data/LongReading.h"

#include "data/Base.h"
#include "data/Engine.h"

namespace xa518 {

LecturaLarga::LecturaLarga(Base& base) : m_base(&base) {
    base.m_motor->PonMemoria(Memoria::Corta);
}

LecturaLarga::~LecturaLarga() {
    try {
        m_base->m_motor->PonMemoria(Memoria::Amplia);
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch)
        // What comes after works with little memory too, only slower.
    }
}

} // namespace xa518
