#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

/// Cuts a line at its separators into fields in upper case and trimmed; what stands behind the last separator is none.
/// No more than `maximo` fields are taken. `campos` is filled anew.
void SeparaCampos(const QString& linea, int maximo, QStringList& campos);

} // namespace xa518
