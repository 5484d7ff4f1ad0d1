#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

/// Words, quoted texts, bracketed names, blanks and single characters, in their order.
[[nodiscard]] QStringList Fichas(const QString& sql);

/// Whether a character belongs to a word: a name, with its table's before a point, or a number.
[[nodiscard]] bool EsDeNombre(QChar c);
[[nodiscard]] bool EsBlanco(const QString& ficha);
/// The next token from `desde` on, in steps of 1 or -1, that isn't blank; past either end when there is none.
[[nodiscard]] qsizetype SiguienteFicha(const QStringList& fichas, qsizetype desde, qsizetype paso);

/// "DELETE * FROM": the star means nothing to the engines.
void QuitaAsteriscoDeDelete(QStringList& fichas);

/// How many values the system's SQL takes: each `?` outside quotes and brackets.
[[nodiscard]] qsizetype LugaresDeValores(const QString& sql);

} // namespace xa518
