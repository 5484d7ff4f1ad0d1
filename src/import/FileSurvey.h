#pragma once

#include <QByteArrayView>
#include <QString>

class QIODevice;

namespace xa518 {

enum class Codificacion { Utf8, Windows1252 };

/// What bars a whole file before its first line is imported.
enum class Defecto { Ninguno, Separadores, SinSeparadorFinal, LineaDemasiadoLarga };

struct Revision {
    Defecto defecto = Defecto::Ninguno;
    Codificacion codificacion = Codificacion::Utf8; ///< of the whole file; settled only when there is no defect
    qint64 bytes = 0;                               ///< size of the file, likewise
};

/// One pass over the whole file, ahead of the import: it counts each line's separators, looks at its last character
/// and settles the encoding, UTF-8 when every line is valid in it.
[[nodiscard]] Revision RevisaArchivo(QIODevice& archivo, int separadores);

/// True when the line holds as many separators as asked.
[[nodiscard]] bool CuentaPye(QByteArrayView linea, int separadores);

[[nodiscard]] QString Decodifica(QByteArrayView bytes, Codificacion codificacion);

} // namespace xa518
