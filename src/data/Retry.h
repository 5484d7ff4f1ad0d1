#pragma once

#include "data/Base.h"

#include <QRandomGenerator>

#include <chrono>
#include <thread>

namespace xa518 {

/// How often a unit of work is begun before the person is told.
inline constexpr int kIntentos = 5;

/// Runs a whole unit of work, its transaction with all that it reads, and begins it again when another connection's
/// writing got in its way so that the engine undid it. Past the last time it raises `BaseBloqueada`.
template <typename Trabajo>
auto ConReintentos(const Trabajo& trabajo) {
    constexpr int kPausaMs = 20;
    for (int intento = 1;; ++intento) {
        try {
            return trabajo();
        } catch (const ErrorBase& error) {
            if (!error.Es(NumeroError::Conflicto))
                throw;
            if (intento == kIntentos)
                throw ErrorBase(NumeroError::BaseBloqueada, error.Texto(), error.Detalle());
        }
        // Two that met must not meet again.
        const int pausa = QRandomGenerator::global()->bounded(kPausaMs * intento) + kPausaMs;
        std::this_thread::sleep_for(std::chrono::milliseconds(pausa));
    }
}

} // namespace xa518
