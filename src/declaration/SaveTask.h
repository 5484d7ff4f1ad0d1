#pragma once

#include "declaration/Declaration.h"
#include "family/StoredState.h"

#include <functional>

class QWidget;

namespace xa518 {

struct Proceso;
struct ResultadoGrabacion;

/// Saves the declaration beside the window's thread, see `GrabaDeclaracion`.
void GrabaAparte(QWidget& ventana, const Proceso& proceso, const Declaracion& declaracion,
                 const EstadoGuardado& conocido, std::function<void(const ResultadoGrabacion&)> alGrabar);

} // namespace xa518
