#pragma once

class QColor;
class QPalette;
class QWidget;

namespace xa518 {

/// Makes what is disabled in a form readable: a declaration that was sent is looked at through disabled fields, and a
/// palette's own grey is meant for what needs no reading. Fields keep the colour of their text on the grey ground;
/// everything else goes half the way. A list is as grey as the fields.
void AclaraDeshabilitados(QWidget& forma);

/// For a form of which everything is only read: its labels and options are as dark as its fields, disabled or not.
void ComoSoloLectura(QWidget& forma);

/// What links are to be painted in: many a dark palette leaves them as dark as their ground, and they then take the
/// colour of what is selected.
[[nodiscard]] QColor ColorDeEnlace(const QPalette& paleta);

} // namespace xa518
