#pragma once

#include <QString>

class QWidget;

namespace xa518 {

/// A few words at a field, about a key that it didn't take. They take neither the focus nor room in the form, and go
/// by themselves when the focus does.
void MuestraPista(const QWidget& campo, const QString& texto);

/// Takes them away: what was typed is being mended.
void QuitaPista(const QWidget& campo);

} // namespace xa518
