#pragma once

#include "values/Period.h"
#include "values/Ruc.h"

namespace xa518 {

class Avisos;
class Base;
class Reloj;

/// What a dialog of the detail is opened for: to enter something new, to change what is stored, or, of a sent copy, to
/// look at it alone.
enum class ModoDetalle { Nuevo, Modificar, Ver };

/// What the three dialogs work with, handed on from each to the next. All it refers to must outlive them.
struct EntornoDetalle {
    Base& base;
    Avisos& avisos;
    const Reloj& reloj;
    Ruc declarante;    ///< of the open declaration
    Periodo declarado; ///< its period
    Periodo primerIgv; ///< of catalogue "830"
};

} // namespace xa518
