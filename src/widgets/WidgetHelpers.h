#pragma once

#include <QString>

class QAction;
class QComboBox;
class QDialog;
class QWidget;

namespace xa518 {

/// Centres a control inside its container, both ways, on whole pixels.
void CentraControl(const QWidget& marco, QWidget& control);

/// Average width of a letter in the window's font: the 52 letters' width divided by 52, truncated.
[[nodiscard]] int AnchoPromedio(const QWidget& ventana);

/// Sets the width of a list's drop-down to (longest item - 2) x `AnchoPromedio`.
void AjustaCombo(const QWidget& ventana, QComboBox& combo);

/// Sets it to (`caracteres` - 2) x `AnchoPromedio`, so that a long hidden tail of the items stays outside.
void FijaAnchoCombo(const QWidget& ventana, QComboBox& combo, int caracteres);

/// With "TAB", sends a tab key to the control that has the focus. Other keys aren't sent.
void EnviaTecla(const QString& tecla);

/// The tip that a control shows under the mouse, as it stands: what looks like markup in a name is part of the name.
void PonSugerencia(QWidget& control, const QString& texto);

/// The same for the labels of a form, whatever they will come to show.
void ComoTextoLlano(const QWidget& forma);

/// Greys a control or a command, and says why under the mouse and in the status bar.
void Impide(QWidget& control, const QString& motivo);
void Impide(QAction& orden, const QString& motivo);

/// Puts the focus on a field, if it is enabled.
void Enfoca(QWidget& campo);

/// Whether a key moves through a list, one row or many.
[[nodiscard]] bool RecorreLista(int tecla);

/// Runs a dialog over a window and gives the keyboard back to that window. A dialog that goes together with its last
/// question would leave it to whichever program is behind, and what is typed next would change things there.
void EjecutaSobre(QWidget& ventana, QDialog& dialogo);

} // namespace xa518
