#include "import/FileSurvey.h"

#include "import/LineReader.h"
#include "values/Text.h"

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <array>

namespace xa518 {

namespace {

constexpr char kSeparador = '|';

qint64 Separadores(QByteArrayView linea) {
    return std::count(linea.begin(), linea.end(), kSeparador);
}

/// Blanks behind the last separator are no fault.
bool TerminaEnSeparador(QByteArrayView linea) {
    while (linea.endsWith(' '))
        linea.chop(1);
    return linea.endsWith(kSeparador);
}

/// By its mark, or, without one, by the zeros that stand for the other half of each plain character, such as those of
/// the document number that a line begins with.
bool EsUtf16(QIODevice& archivo) {
    constexpr qint64 kMuestra = 16;
    archivo.seek(0); // a failure of the device is told by the reader, which goes there again
    const QByteArray inicio = archivo.read(kMuestra);
    if (inicio.startsWith("\xFF\xFE") || inicio.startsWith("\xFE\xFF"))
        return true;
    std::array<qsizetype, 2> ceros{};
    for (qsizetype i = 0; i < inicio.size(); ++i)
        ceros[static_cast<size_t>(i % 2)] += inicio[i] == '\0' ? 1 : 0;
    return inicio.size() >= 2 && std::max(ceros[0], ceros[1]) == inicio.size() / 2 && std::min(ceros[0], ceros[1]) == 0;
}

/// A defect that comes before the one known so far takes its place.
void Anota(Revision& revision, Defecto defecto, qint64 linea, qint64 campos) {
    if (revision.defecto != defecto)
        revision = {.defecto = defecto, .linea = linea, .campos = campos};
    ++revision.lineas;
}

void RevisaLinea(QByteArrayView linea, qint64 numero, int separadores, Revision& revision) {
    if (!CuentaPye(linea, separadores))
        Anota(revision, Defecto::Separadores, numero, Separadores(linea));
    else if (revision.defecto != Defecto::Separadores && !TerminaEnSeparador(linea))
        Anota(revision, Defecto::SinSeparadorFinal, numero, separadores);
    // No character of UTF-8 goes on past an end of line, so the file is valid when each of its lines is.
    if (!EsUtf8Valido(linea))
        revision.codificacion = Codificacion::Windows1252;
}

} // namespace

bool CuentaPye(QByteArrayView linea, int separadores) {
    return Separadores(linea) == separadores;
}

/// The count of separators is told first, whatever line it fails in; the last character only when all counts are right.
Revision RevisaArchivo(QIODevice& archivo, int separadores) {
    if (EsUtf16(archivo))
        return {.defecto = Defecto::Utf16};
    LectorLineas lector(archivo);
    Revision revision;
    for (qint64 numero = 1;; ++numero) {
        switch (lector.Siguiente()) {
        case LectorLineas::Lectura::Fin: revision.bytes = lector.BytesLeidos(); return revision;
        case LectorLineas::Lectura::DemasiadoLarga:
            if (revision.defecto != Defecto::Separadores) // which has barred the file before
                Anota(revision, Defecto::LineaDemasiadoLarga, numero, kSinContar);
            return revision;
        case LectorLineas::Lectura::Linea: RevisaLinea(lector.Linea(), numero, separadores, revision);
        }
    }
}

Defecto DefectoDeLinea(QByteArrayView linea, int separadores) {
    if (linea.size() > LectorLineas::kLargoMaximo)
        return Defecto::LineaDemasiadoLarga;
    if (!CuentaPye(linea, separadores))
        return Defecto::Separadores;
    return TerminaEnSeparador(linea) ? Defecto::Ninguno : Defecto::SinSeparadorFinal;
}

QString Decodifica(QByteArrayView bytes, Codificacion codificacion) {
    return codificacion == Codificacion::Utf8 ? QString::fromUtf8(bytes) : DecodificaWindows1252(bytes);
}

} // namespace xa518
