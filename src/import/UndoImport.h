#pragma once

#include <functional>

class QWidget;

namespace xa518 {

class Avisos;
struct Proceso;

/// Undoes the last import of the open declaration over a window: looks what would go, asks, and does it, the long parts
/// beside the window's thread. `alDeshacer` runs when it is done, before it is told.
void DeshaceUltimaImportacion(QWidget& ventana, const Proceso& proceso, Avisos& avisos,
                              const std::function<void()>& alDeshacer);

} // namespace xa518
