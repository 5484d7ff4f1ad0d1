#pragma once

#include "declaration/Declaration.h"
#include "family/DeclarationKey.h"
#include "family/StoredDeclaration.h"

#include <QString>

namespace xa518 {

class Base;

/// Writes one box of a declaration, adding its row or editing it. An empty value, or a declaration without declarant,
/// writes nothing.
void GrabaCasilla(Base& base, const ClaveDeclaracion& clave, const CasillaGuardada& guardada);

/// Writes the box that catalogue "856" names for the form, when it names one.
void GrabaCasillaParam(Base& base, const ClaveDeclaracion& clave);

/// Shows one stored box in the record; boxes that the form has no field for are passed over.
void MuestraCasilla(Declaracion& declaracion, const CasillaGuardada& guardada);

/// Reads the stored boxes and the payment of `declaracion.clave` into it. What isn't stored stays as it is.
void CargaCasillas(Base& base, Declaracion& declaracion);

} // namespace xa518
