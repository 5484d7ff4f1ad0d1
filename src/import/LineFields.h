#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace xa518 {

/// Cuts a line at its separators into fields in upper case and trimmed; what stands behind the last separator is none.
/// No more than `maximo` fields are taken. `campos` is filled anew.
void SeparaCampos(const QString& linea, int maximo, QStringList& campos);

/// The bytes of a field that the line has, counted from 0. No separator hides within a character of either encoding.
[[nodiscard]] QByteArrayView TrozoDeCampo(QByteArrayView linea, int campo);

} // namespace xa518
