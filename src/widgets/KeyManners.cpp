#include "widgets/KeyManners.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace xa518 {

namespace {

/// Enter presses buttons and opens rows, the space bar presses buttons, Esc closes boxes, a letter with Alt or Ctrl
/// gives a command. What comes up under a held key was never asked for: it would answer the question that its own first
/// press has brought.
bool Decide(const QObject& receptor, const QKeyEvent& tecla) {
    if (tecla.key() == Qt::Key_Space)
        return qobject_cast<const QAbstractButton*>(&receptor) != nullptr;
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

/// Under X a key that is held down is let go and pressed again at the same moment, in two messages. The toolkit marks
/// the second as a repeat only when it has come already while the first is read.
bool ModalesDeTeclado::EsRepetida(const QKeyEvent& tecla) const {
    return tecla.isAutoRepeat() || (m_alSoltar != 0 && tecla.timestamp() == m_alSoltar && tecla.key() == m_soltada);
}

/// Before it becomes a key, what is pressed is offered as a shortcut.
bool ModalesDeTeclado::EsTeclaPerdida(const QObject& receptor, const QEvent& evento) {
    const bool pulsada = evento.type() == QEvent::KeyPress;
    if (!pulsada && evento.type() != QEvent::ShortcutOverride && evento.type() != QEvent::KeyRelease)
        return false;
    const auto& tecla = static_cast<const QKeyEvent&>(evento);
    if (evento.type() == QEvent::KeyRelease) {
        m_soltada = tecla.key();
        m_alSoltar = tecla.timestamp();
        return false;
    }
    return (EsRepetida(tecla) && Decide(receptor, tecla)) || (pulsada && EscribeConAlt(receptor, tecla));
}

} // namespace xa518
