#pragma once

#include "data/ServerFailure.h"

#include <QMap>

#include <libpq-fe.h>

namespace xa518 {

/// A text of a connection as libpq reads it, by keyword. Raises `ErrorDeServidor` (`Texto`) for one that it can't read,
/// one that names no server, and one with a password.
using Parametros = QMap<QString, QString>;
[[nodiscard]] Parametros LeeConexion(const QString& texto);

/// Written anew as "keyword='value' ...".
[[nodiscard]] QString TextoDeConexion(const Parametros& parametros);

/// Why a connection couldn't be made; to be called when that has failed.
[[nodiscard]] ErrorDeServidor FallaAlConectar(const Parametros& parametros);

// Raise `ErrorDeServidor` for a server that these programs can't work with.
/// By its version as libpq tells it: 130000 and later ones will do.
void ExigeVersionDelServidor(int version);
/// What two seats write carries the time of each, so all clocks have to agree. In milliseconds since the epoch.
void ExigeMismaHora(qint64 delServidor, qint64 deEsteEquipo);

/// A statement's failure by its five characters of SQLSTATE, and the server's words.
[[nodiscard]] ErrorBase ErrorDeEstado(const QString& estado, const QString& motor);
[[nodiscard]] ErrorBase ErrorDeResultado(const PGresult* resultado);
[[nodiscard]] ErrorDeServidor ConexionPerdida(const QString& motor);

} // namespace xa518
