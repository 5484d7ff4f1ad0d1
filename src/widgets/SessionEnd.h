#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace xa518 {

/// Keeps the person's session from ending, while the window lives and `mientras` says so, for what would be lost with
/// it. The system then shows who holds it, Windows with `motivo`, and lets the person end it all the same. With nothing
/// to lose the program ends with the session.
void RetieneLaSesion(QWidget& ventana, std::function<bool()> mientras, const QString& motivo);

} // namespace xa518
