#pragma once

#include <QIcon>

namespace xa518 {

/// What the buttons of the toolbar show.
enum class Dibujo { Nueva, Modificar, Eliminar, Imprimir, Salir, Registrar, Ayuda };

/// Drawn in the colours of the palette in force, at any size and scale.
[[nodiscard]] QIcon IconoDe(Dibujo dibujo);

/// The logo as an icon, for the windows.
[[nodiscard]] QIcon IconoDelModulo();

} // namespace xa518
