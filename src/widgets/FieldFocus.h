#pragma once

#include <QList>
#include <QString>

#include <functional>

class QAbstractButton;
class QLineEdit;
class QWidget;

namespace xa518 {

// What runs when a field gets or loses the focus. A change of window, a menu or a list that drops down is neither.

/// How a leave handler ends: the field is left, or it keeps the focus because of what it holds.
enum class Salida { Libre, Retenida };

/// Runs when the field gets the focus, after those attached before.
void AlEntrar(QWidget& campo, std::function<void()> manejador);

/// Runs when the focus goes to another field of the window, after those attached before. `Retenida` pulls the focus
/// back, ends the row of handlers, and drops the click that took the focus, unless it is a way out of the form.
void AlSalir(QWidget& campo, std::function<Salida()> manejador);

/// A text in, the text to show out.
using FormatoDeCampo = std::function<QString(const QString&)>;

/// The pair of focus formats: plain while the field is edited, grouped while it isn't. An empty text stays empty and
/// runs neither.
void FormatosDeFoco(QLineEdit& campo, FormatoDeCampo alEntrar, FormatoDeCampo alSalir);

/// Zero padding on leaving a field that isn't empty; `ancho` is asked each time.
void CompletaConCeros(QLineEdit& campo, std::function<int()> ancho);

/// Series padding on leaving: the typing limit goes back to 4, and a series without letters is filled to 4 with zeros.
void CompletaSerie(QLineEdit& campo);

/// Runs the leave handlers of the focused field now, by taking the focus to `destino`, or away. To be called before
/// the work of whatever takes a user's attention without taking the focus.
[[nodiscard]] Salida SueltaFoco(QWidget* destino = nullptr);

/// Makes the leave handlers run before a click, a mnemonic or a change of tab in the whole form, and drops it when
/// the field kept the focus. The buttons in `salidas` go on in any case. In a group of options the focus goes to the
/// marked one. To be called once the form has its widgets.
void CuidaElFoco(QWidget& forma, const QList<QAbstractButton*>& salidas);

} // namespace xa518
