#include "import/FileSurvey.h"

#include "import/LineReader.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

namespace {

constexpr char kSeparador = '|';

/// Blanks behind the last separator are no fault.
bool TerminaEnSeparador(QByteArrayView linea) {
    while (linea.endsWith(' '))
        linea.chop(1);
    return linea.endsWith(kSeparador);
}

} // namespace

bool CuentaPye(QByteArrayView linea, int separadores) {
    return std::count(linea.begin(), linea.end(), kSeparador) == separadores;
}

/// The count of separators is told first, whatever line it fails in; the last character only when all counts are right.
Revision RevisaArchivo(QIODevice& archivo, int separadores) {
    LectorLineas lector(archivo);
    Revision revision;
    for (;;) {
        const LectorLineas::Lectura lectura = lector.Siguiente();
        if (lectura == LectorLineas::Lectura::Fin) {
            revision.bytes = lector.BytesLeidos();
            return revision;
        }
        if (lectura == LectorLineas::Lectura::DemasiadoLarga)
            return {Defecto::LineaDemasiadoLarga};
        if (!CuentaPye(lector.Linea(), separadores))
            return {Defecto::Separadores};
        if (!TerminaEnSeparador(lector.Linea()))
            revision.defecto = Defecto::SinSeparadorFinal;
        // No character of UTF-8 goes on past an end of line, so the file is valid when each of its lines is.
        if (!EsUtf8Valido(lector.Linea()))
            revision.codificacion = Codificacion::Windows1252;
    }
}

QString Decodifica(QByteArrayView bytes, Codificacion codificacion) {
    return codificacion == Codificacion::Utf8 ? QString::fromUtf8(bytes) : DecodificaWindows1252(bytes);
}

} // namespace xa518
