#include "data/ServerFailure.h"

namespace xa518 {

namespace {

constexpr int kPrimerCodigo = 10;

NumeroError NumeroDe(FallaDeServidor falla) {
    switch (falla) {
    case FallaDeServidor::Texto:
    case FallaDeServidor::BaseAjena: return NumeroError::MotorAjeno;
    case FallaDeServidor::Cuenta: return NumeroError::CuentaRechazada;
    case FallaDeServidor::Antiguo:
    case FallaDeServidor::Posterior: return NumeroError::VersionAjena;
    case FallaDeServidor::Reloj: return NumeroError::ArgumentoInvalido;
    case FallaDeServidor::Perdida: return NumeroError::ConexionPerdida;
    case FallaDeServidor::Equipo:
    case FallaDeServidor::Puerto:
    case FallaDeServidor::SinBase:
    case FallaDeServidor::SinCifrado: break;
    }
    return NumeroError::BaseNoExiste;
}

} // namespace

ErrorDeServidor::ErrorDeServidor(FallaDeServidor falla, const QString& texto, const QString& detalle)
    : ErrorBase(NumeroDe(falla), texto, detalle), m_falla(falla) {}

ConfirmacionIncierta::ConfirmacionIncierta(const QString& consejo, const QString& detalle)
    : ErrorDeServidor(FallaDeServidor::Perdida,
                      QStringLiteral("Se perdió la conexión con el servidor en el momento de confirmar, y todavía no se"
                                     " puede saber si lo último quedó grabado. Cuando vuelva la conexión, %1 antes de"
                                     " repetirlo.")
                          .arg(consejo),
                      detalle) {}

int CodigoDeSalida(const Error& error, int deOtra) {
    const auto* falla = dynamic_cast<const ErrorDeServidor*>(&error);
    return falla == nullptr ? deOtra : kPrimerCodigo + static_cast<int>(falla->Falla());
}

} // namespace xa518
