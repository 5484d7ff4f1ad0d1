#pragma once

#include <QByteArrayView>
#include <QString>

class QIODevice;

namespace xa518 {

enum class Codificacion { Utf8, Windows1252 };

/// What bars a whole file before its first line is imported.
enum class Defecto { Ninguno, Separadores, SinSeparadorFinal, LineaDemasiadoLarga, Utf16 };

inline constexpr qint64 kSinContar = -1;

struct Revision {
    Defecto defecto = Defecto::Ninguno;
    qint64 linea = 0;  ///< the first line with the defect, from 1; 0 when it is the file's as a whole
    qint64 campos = 0; ///< how many fields that line has, each with its separator behind, or `kSinContar`
    qint64 lineas = 0; ///< how many lines have the defect
    Codificacion codificacion = Codificacion::Utf8; ///< of the whole file; settled only when there is no defect
    qint64 bytes = 0;                               ///< size of the file, likewise
};

/// One pass over the whole file, ahead of the import: it counts each line's separators, looks at its last character
/// and settles the encoding, UTF-8 when every line is valid in it. A file in UTF-16 is told as that, not by the lines
/// that its bytes would make.
[[nodiscard]] Revision RevisaArchivo(QIODevice& archivo, int separadores);

/// True when the line holds as many separators as asked.
[[nodiscard]] bool CuentaPye(QByteArrayView linea, int separadores);

/// What a line has that would bar its whole file.
[[nodiscard]] Defecto DefectoDeLinea(QByteArrayView linea, int separadores);

[[nodiscard]] QString Decodifica(QByteArrayView bytes, Codificacion codificacion);

} // namespace xa518
