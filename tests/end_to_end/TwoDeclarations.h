#pragma once

#include "data/Base.h"
#include "data/DeclarationKey.h"

namespace xa518::prueba {

/// Two contents of one declaration that differ in every table.
enum class Contenido { Uno, Otro };

/// Saves what the work tables hold, with that way of payment and that mark of a rectification.
void GrabaTrabajo(Base& base, const ClaveDeclaracion& clave, const QString& forma, const QString& rectifica);

/// Fills the work tables with one of the contents and saves it.
void GrabaContenido(Base& base, Contenido contenido);

} // namespace xa518::prueba
