#pragma once

#include "platform/SystemWindows.h"

namespace xa518 {

/// What the system shows beside the window's name while the program keeps the session from ending; an empty text takes
/// it back. Only Windows shows it.
void MotivoDeEspera(Manejador ventana, const QString& motivo);

} // namespace xa518
