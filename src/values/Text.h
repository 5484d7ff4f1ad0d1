#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <compare>

namespace xa518 {

/// Cuts blanks (code 32 only, not tabs) from both ends.
[[nodiscard]] QStringView Recorta(QStringView texto);

/// The characters from position `desde`, counted from 1; what there is of them when the text ends sooner.
[[nodiscard]] QStringView Mid(QStringView texto, qsizetype desde, qsizetype largo);

/// Upper case character by character, within Windows-1252: "ñ" and accents follow, "ß" and "µ" stay.
[[nodiscard]] QString Mayusculas(QStringView texto);

/// As the tables compare texts: code by code, A to Z as a to z, no other letter as another.
[[nodiscard]] std::strong_ordering ComparaSinCaja(QStringView a, QStringView b);

/// The character's code in Windows-1252; 63, the code of "?", for a character that it lacks.
[[nodiscard]] int CodigoWindows1252(QChar caracter);

[[nodiscard]] QString DecodificaWindows1252(QByteArrayView bytes);

[[nodiscard]] bool EsUtf8Valido(QByteArrayView bytes);

/// UTF-8 where the bytes are that, otherwise Windows-1252: files of older programs.
[[nodiscard]] QString DecodificaCualquiera(QByteArrayView bytes);

[[nodiscard]] constexpr bool EsDigito(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// True for an empty text too.
[[nodiscard]] bool SonDigitos(QStringView texto);

/// A to Z and a to z, nothing else.
[[nodiscard]] constexpr bool EsLetra(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

} // namespace xa518
