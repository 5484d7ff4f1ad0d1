#pragma once

#include "import/CheckedLine.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <optional>

namespace xa518 {

/// Rules that several field checks share.

/// True when the field, as two digits, is found in a list such as "01-03-07". Wanted: it is a search for a piece of
/// text, so the empty field and pieces that cross the dashes, such as "1-", are found too.
[[nodiscard]] bool EstaEnLista(QStringView campo, QStringView lista);

/// The length of a person's document, and how wide the columns of names, numbers and types are.
inline constexpr int kLargoDni = 8;
inline constexpr int kLargoRazon = 40;
inline constexpr int kAnchoNumero = 8;
inline constexpr int kAnchoTipo = 2;

template <size_t N>
[[nodiscard]] bool EsUnoDe(QStringView tipo, const std::array<Codigo, N>& tipos) {
    return std::find(tipos.begin(), tipos.end(), tipo) != tipos.end();
}

/// Fills a series with zeros to four characters; false when it can't be one: empty, too long, a first character that
/// is no letter or digit, or others that are no digits.
[[nodiscard]] bool CompletaSerie(QString& campo);

/// Fills a number with zeros to its width; false when it is empty, too long, no number or not above zero.
[[nodiscard]] bool CompletaNumero(QString& campo, int ancho);

/// The field's day when it is a real one and within the limits of the import.
[[nodiscard]] std::optional<QDate> FechaImportada(QStringView campo);

/// False when the date lies after today.
[[nodiscard]] bool Fechadesistema(const QDate& fecha, const QDate& hoy);

[[nodiscard]] bool EmpiezaConDigito(QStringView serie);
/// A letter or digit in front, and three more characters that are no letters.
[[nodiscard]] bool EsSerieConLetra(QStringView serie);

/// The codes with which an amount field is refused, and how many whole digits it may have.
struct ReglaMonto {
    Codigo vacio;
    Codigo noValido;
    Codigo noNumerico;
    Codigo negativo;
    Codigo puntos;
    Codigo enteros;
    Codigo largo;
    int maximoEnteros = 0;
    bool admiteSigno = false;
};
[[nodiscard]] Codigo CompruebaMonto(QStringView campo, const ReglaMonto& regla);

} // namespace xa518
