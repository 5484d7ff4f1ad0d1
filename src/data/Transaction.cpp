#include "data/Transaction.h"

#include "data/Base.h"
#include "data/Engine.h"
#include "data/ServerFailure.h"

#include <utility>

namespace xa518 {

Transaccion::Transaccion(Base& base, Turno turno) : m_base(&base) {
    const QStringList comienzo = base.m_motor->SqlComienza(turno);
    base.EjecutaDentro(comienzo.constFirst());
    base.m_enTransaccion = true;
    try {
        for (const QString& sql : comienzo.sliced(1))
            base.EjecutaDentro(sql);
    } catch (...) {
        Deshace();
        throw;
    }
}

Transaccion::Transaccion(Transaccion&& otra) noexcept : m_base(std::exchange(otra.m_base, nullptr)) {}

Transaccion::~Transaccion() {
    if (m_base != nullptr)
        Deshace();
}

void Transaccion::Deshace() noexcept {
    m_base->m_enTransaccion = false;
    if (m_base->m_motor->EstaPerdida())
        return; // the engine has undone it with the connection
    try {
        m_base->EjecutaDentro(QStringLiteral("ROLLBACK"));
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
        // The engine has undone the transaction by itself, as it does after a full disk.
    }
}

void Transaccion::Confirma() {
    Motor& motor = *m_base->m_motor;
    motor.ExigeConfirmable();
    const QString marca = motor.MarcaDeTransaccion();
    Confirma([&] { return motor.QuedoTransaccion(marca); }, Rastro::Ninguno);
}

void Transaccion::Confirma(const std::function<bool()>& quedo) {
    Confirma(quedo, Rastro::EnBitacora);
}

void Transaccion::PideConfirmar() {
    m_base->m_motor->ExigeConfirmable();
    m_base->EjecutaDentro(QStringLiteral("COMMIT"));
    m_base->m_enTransaccion = false;
    m_base = nullptr;
}

void Transaccion::Confirma(const std::function<bool()>& quedo, Rastro rastro) {
    Base& base = *m_base;
    try {
        PideConfirmar();
    } catch (const ErrorDeServidor& error) {
        if (error.Falla() != FallaDeServidor::Perdida)
            throw;
        Deshace();
        m_base = nullptr;
        if (!Averigua(base, quedo, rastro))
            throw;
    }
}

/// Looked up on another connection, which waits for the end of the lost one.
bool Transaccion::Averigua(Base& base, const std::function<bool()>& quedo, Rastro rastro) {
    try {
        base.ExigeConexion();
        return quedo();
    } catch (const ErrorBase& error) {
        throw ConfirmacionIncierta(rastro == Rastro::EnBitacora
                                       ? QStringLiteral("búsquelo en la bitácora de la consola")
                                       : QStringLiteral("revíselo"),
                                   error.Detalle());
    }
}

} // namespace xa518
