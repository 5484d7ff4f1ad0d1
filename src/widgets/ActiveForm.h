#pragma once

#include "values/Message.h"

class QWidget;

namespace xa518 {

/// The form in front: the modal one, else the active window, else any visible window; null when nothing shows.
[[nodiscard]] QWidget* FormaActiva();

/// The title that a message shows: its own, or the caption of the form in front.
[[nodiscard]] QString TituloMostrado(const Mensaje& mensaje);

} // namespace xa518
