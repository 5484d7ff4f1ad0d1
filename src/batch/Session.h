#pragma once

#include "family/Process.h"
#include "platform/ProfileFile.h"
#include "values/Message.h"

#include <memory>

namespace xa518 {

/// Raised when something is refused before anything is written: the message for the user, and where the fault lies
/// when that is known.
struct Rechazo {
    Mensaje mensaje;
    QString detalle{};
};

[[nodiscard]] Rechazo RechazaCon(const QString& texto);

/// The process-wide values and the open base, read as the module reads them. Raises `Error` when the profile file or
/// the base fails.
[[nodiscard]] std::unique_ptr<Proceso> AbreSesion(const ArchivoPerfil& perfil, const Reloj& reloj);

} // namespace xa518
