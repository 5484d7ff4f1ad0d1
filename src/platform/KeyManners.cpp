#include "platform/KeyManners.h"

#include <QKeyEvent>

namespace xa518 {

namespace {

/// Enter presses buttons and opens rows, Esc closes boxes, a letter with Alt or Ctrl gives a command. What comes up
/// under a held key was never asked for: it would answer the question that its own first press has brought.
bool Decide(const QKeyEvent& tecla) {
    if (tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter || tecla.key() == Qt::Key_Escape)
        return true;
    const bool esLetra = tecla.key() < Qt::Key_Escape && QChar::isLetterOrNumber(static_cast<char32_t>(tecla.key()));
    return esLetra && tecla.modifiers().testAnyFlags(Qt::AltModifier | Qt::ControlModifier);
}

} // namespace

/// Before it becomes a key, what is pressed is offered as a shortcut.
bool EsTeclaPerdida(const QEvent& evento) {
    if (evento.type() != QEvent::KeyPress && evento.type() != QEvent::ShortcutOverride)
        return false;
    const auto& tecla = static_cast<const QKeyEvent&>(evento);
    return tecla.isAutoRepeat() && Decide(tecla);
}

} // namespace xa518
