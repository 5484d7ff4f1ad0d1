#pragma once

#include "data/Base.h"

namespace xa518 {

/// What is wrong with a server, or with what the configuration says of it. Their order is that of the programs' exit
/// codes.
enum class FallaDeServidor {
    Texto,      ///< the text of the connection names none, or holds what doesn't belong there
    Equipo,     ///< no machine of that name
    Puerto,     ///< nothing answers there
    Cuenta,     ///< user or password
    SinBase,    ///< no database of that name, or one where nothing is installed
    BaseAjena,  ///< the database holds something else
    Antiguo,    ///< a version of the server from before 13
    SinCifrado, ///< no TLS where the text asks for it
    Reloj,      ///< more than two minutes from this machine's
    Perdida,    ///< the connection, in the middle of the work
    Posterior,  ///< tables of a later version of these programs
};

/// A failure of the server or of the way to it, each of which a program ends with by a code of its own.
class ErrorDeServidor : public ErrorBase {
  public:
    ErrorDeServidor(FallaDeServidor falla, const QString& texto, const QString& detalle = {});
    [[nodiscard]] FallaDeServidor Falla() const { return m_falla; }

  private:
    FallaDeServidor m_falla;
};

/// The connection broke while a transaction was confirmed, and nobody can tell yet whether it arrived. `consejo` says
/// what to do when it is back.
class ConfirmacionIncierta : public ErrorDeServidor {
  public:
    ConfirmacionIncierta(const QString& consejo, const QString& detalle);
};

/// The code that a program without a window ends with: from 10 on one for each failure of the server, `deOtra` after
/// any other error.
[[nodiscard]] int CodigoDeSalida(const Error& error, int deOtra);

} // namespace xa518
