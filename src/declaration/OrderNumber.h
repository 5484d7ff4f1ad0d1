#pragma once

#include "declaration/TaxPeriod.h"
#include "family/DeclarationKey.h"

#include <QString>

namespace xa518 {

class Base;
struct Firma;

/// The order number that the administration gave to a sent declaration, as typed: the number and its check digits.
struct NumeroDeOrden {
    QString control; ///< control number of the sending
    QString numero;  ///< at least 8 characters
    QString digitos;
};

/// The same two faults have two wordings: at the button they begin with five blanks, on closing they are plain.
enum class MomentoOrden { Boton, Cierre };

[[nodiscard]] VeredictoDeclaracion ValidaNumeroDeOrden(const NumeroDeOrden& orden, MomentoOrden momento);

/// Stores the number, without its check digits, in the head of the sent copy, notes it, and returns what the user is
/// told. A copy
/// that no longer exists changes nothing, and the message is the same. Wanted: there is nothing left for the user to
/// do.
[[nodiscard]] Mensaje RegistraNumeroDeOrden(Base& base, const ClaveDeclaracion& clave, const QString& numero,
                                            const Firma& firma);

} // namespace xa518
