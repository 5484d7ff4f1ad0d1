#pragma once

#include "data/Base.h"

namespace xa518::prueba {

/// Two contents of one declaration that differ in every table.
enum class Contenido { Uno, Otro };

/// Fills the work tables with one of the contents and saves it.
void GrabaContenido(Base& base, Contenido contenido);

} // namespace xa518::prueba
