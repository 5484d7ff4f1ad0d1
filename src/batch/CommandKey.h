#pragma once

#include "family/DeclarationKey.h"
#include "values/Message.h"

namespace xa518 {

class Base;
struct Argumentos;
struct Proceso;

/// Raises `Rechazo` with the verdict's reason.
void Exige(const Veredicto& veredicto);

/// The declaration that the command line names, registered or a sent copy. Raises `Rechazo` when its period can't be
/// declared, or when the user may not choose its declarant.
[[nodiscard]] ClaveDeclaracion ClaveDe(const Proceso& proceso, const Argumentos& argumentos);

/// Raises `Rechazo` when there is no such declaration.
void ExigeDeclaracion(Base& base, const ClaveDeclaracion& clave);

} // namespace xa518
