#pragma once

#include "data/Base.h"

#include <QMap>

#include <libpq-fe.h>

namespace xa518 {

/// What is wrong with a server, or with what the configuration says of it.
enum class FallaDeServidor {
    Texto,    ///< the text of the connection names none, or holds what doesn't belong there
    Equipo,   ///< no machine of that name
    Puerto,   ///< nothing answers there
    Cuenta,   ///< user or password
    SinBase,  ///< no database of that name, or one where nothing is installed
    BaseAjena,
    Antiguo,
    SinCifrado,
    Reloj,
    Perdida, ///< the connection, in the middle of the work
};

/// A failure of the server or of the way to it, each of which a program ends with by a code of its own.
class ErrorDeServidor : public ErrorBase {
  public:
    ErrorDeServidor(FallaDeServidor falla, const QString& texto, const QString& detalle = {});
    [[nodiscard]] FallaDeServidor Falla() const { return m_falla; }

  private:
    FallaDeServidor m_falla;
};

/// A text of a connection as libpq reads it, by keyword. Raises `ErrorDeServidor` (`Texto`) for one that it can't read,
/// one that names no server, and one with a password.
using Parametros = QMap<QString, QString>;
[[nodiscard]] Parametros LeeConexion(const QString& texto);

/// Written anew as "keyword='value' ...".
[[nodiscard]] QString TextoDeConexion(const Parametros& parametros);

/// Why a connection couldn't be made; to be called when that has failed.
[[nodiscard]] ErrorDeServidor FallaAlConectar(const Parametros& parametros);

/// A statement's failure by its five characters of SQLSTATE, and the server's words.
[[nodiscard]] ErrorBase ErrorDeEstado(const QString& estado, const QString& motor);
[[nodiscard]] ErrorBase ErrorDeResultado(const PGresult* resultado);
[[nodiscard]] ErrorDeServidor ConexionPerdida(const QString& motor);

} // namespace xa518
