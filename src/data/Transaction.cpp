#include "data/Transaction.h"

#include "data/Base.h"
#include "data/Engine.h"

#include <utility>

namespace xa518 {

Transaccion::Transaccion(Base& base) : m_base(&base) {
    base.Ejecuta(base.m_motor->SqlComienza());
}

Transaccion::Transaccion(Transaccion&& otra) noexcept : m_base(std::exchange(otra.m_base, nullptr)) {}

Transaccion::~Transaccion() {
    if (m_base == nullptr)
        return;
    try {
        m_base->Ejecuta(QStringLiteral("ROLLBACK"));
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
        // The engine has undone the transaction by itself, as it does after a full disk.
    }
}

void Transaccion::Confirma() {
    m_base->Ejecuta(QStringLiteral("COMMIT"));
    m_base = nullptr;
}

} // namespace xa518
