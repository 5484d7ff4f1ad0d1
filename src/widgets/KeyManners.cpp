#include "widgets/KeyManners.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

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

/// The toolkit would type it into a field, over what is selected there, or look it up in a list and choose. With Ctrl
/// it is how some keyboards reach their third letters.
bool EscribeConAlt(const QObject& receptor, const QKeyEvent& tecla) {
    const bool esCampo = qobject_cast<const QLineEdit*>(&receptor) || qobject_cast<const QComboBox*>(&receptor) ||
                         qobject_cast<const QAbstractSpinBox*>(&receptor);
    return esCampo && !tecla.text().isEmpty() && tecla.text().front().isPrint() &&
           tecla.modifiers().testAnyFlags(Qt::AltModifier | Qt::MetaModifier) &&
           !tecla.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace

/// Before it becomes a key, what is pressed is offered as a shortcut.
bool EsTeclaPerdida(const QObject& receptor, const QEvent& evento) {
    if (evento.type() != QEvent::KeyPress && evento.type() != QEvent::ShortcutOverride)
        return false;
    const auto& tecla = static_cast<const QKeyEvent&>(evento);
    if (tecla.isAutoRepeat() && Decide(tecla))
        return true;
    return evento.type() == QEvent::KeyPress && EscribeConAlt(receptor, tecla);
}

} // namespace xa518
