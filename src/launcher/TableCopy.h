#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace xa518 {

class Base;

/// What two tables must have in common to hold the same: their rows in the order in which they were entered.
struct HuellaDeTabla {
    qint64 filas = 0;
    qint64 suma = 0;    ///< of the checksums `cNumero`; 0 for a table without them
    QByteArray firma{}; ///< of every value of every row

    bool operator==(const HuellaDeTabla&) const = default;
};

/// Called with each row that is read, so that it may raise `Detenido`.
using AlLeerFila = std::function<void()>;

/// Reads a table through.
[[nodiscard]] HuellaDeTabla HuellaDe(Base& base, const QString& tabla, const AlLeerFila& alLeer);

/// Adds the rows of a table to the empty one of the same name in another base, within a transaction of that one.
/// Returns what was read. Raises `Error`.
[[nodiscard]] HuellaDeTabla CopiaTabla(Base& origen, Base& destino, const QString& tabla, const AlLeerFila& alLeer);

[[nodiscard]] qint64 CuentaDeFilas(Base& base, const QString& tabla);

} // namespace xa518
