#pragma once

#include <QFlags>
#include <QString>

#include <functional>

class QLineEdit;

namespace xa518 {

// Behaviours of a text field's keys, attached by name. They may be attached in any order: every typed key first runs
// the callbacks of `AlTeclear`, then the filters one after the other, then the limit; of a key that doesn't pass a few
// words at the field tell which ones do. Keys that type nothing (arrows, Tab, shortcuts) pass untouched. A field with
// any of them takes text only from keys: pasting by keys, menu, middle button or drop is blocked.

inline constexpr int kRetroceso = 8; ///< the character code of Backspace

/// A key's character code in, the code to type out: the same, another one, or 0 to swallow the key.
using FiltroTecla = std::function<int(int tecla)>;

/// Which keys a filter lets pass, in words for the person whose key didn't; asked at that key.
using TeclasQuePasan = std::function<QString()>;

/// The keypad's decimal key arrives as the point, whatever the keyboard's language has on it.
void FiltraTeclas(QLineEdit& campo, FiltroTecla filtro, TeclasQuePasan pasan);
void FiltraTeclas(QLineEdit& campo, FiltroTecla filtro, const QString& pasan);

/// Runs on every typed key, Enter and Delete included, also for a key that a filter rejects: that is wanted, a
/// rejected key counts as a change.
void AlTeclear(QLineEdit& campo, std::function<void()> aviso);

/// At most so many characters can be typed. A text set by the program is never cut. The limit that the field brings
/// from its form counts as the first one.
void LimitaTecleo(QLineEdit& campo, int largo);
[[nodiscard]] int LimiteDeTecleo(const QLineEdit& campo);

/// Lifts the limit that the field brings from its form into a typing limit, so that the program's texts aren't cut.
void TextoSinCorte(QLineEdit& campo);

/// Enter acts as Tab.
void EntrarComoTab(QLineEdit& campo);

/// The same, but an empty field swallows it.
void EntrarSiHayTexto(QLineEdit& campo);

/// The gestures that empty the clipboard. Ctrl+V, the middle button and drops are blocked without emptying it.
enum class Gesto { ShiftInsert = 1, TeclaMenu = 2, BotonDerecho = 4 };
Q_DECLARE_FLAGS(Gestos, Gesto)
Q_DECLARE_OPERATORS_FOR_FLAGS(Gestos)
inline constexpr Gestos kTodosLosGestos{7};

/// The paste guard: nothing can be pasted into the field, and the gestures empty the clipboard.
void SinPegar(QLineEdit& campo, Gestos gestos = kTodosLosGestos);

} // namespace xa518
