#pragma once

#include "values/Decimal.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace xa518 {

class Base;
class Registro;
struct Tabla;

/// The six digits that the tax administration receives as `cNumero` with each row, out of its fields: three digits of
/// the sum of those that count as numbers, three of the others', by character code times position, which starts again
/// in every field. Blanks around a field don't count.
class Checksum {
  public:
    void Numero(QStringView texto);
    /// Raises `Desbordamiento` when a code times its position passes 32767 (from position 129 on it can).
    void Texto(QStringView texto);
    [[nodiscard]] QString Digitos() const;

  private:
    Decimal m_numeros;
    qint64 m_codigos = 0;
};

/// The checksum of a row: the first `primeros` fields are numbers, the others but the last texts. Raises as `Checksum`.
[[nodiscard]] QString ChecksumRegistro(const Registro& registro, int primeros);

/// Puts the checksum in the row's last column, `cNumero`, once all others are in place.
void PonChecksum(Registro& registro, int primeros);

/// Puts the checksum and adds the row.
void AgregaConChecksum(Base& base, Registro& registro, int primeros);

/// What a column gets in a copied row, in SQL, with the values of its `?`.
struct DatoDeCopia {
    QString columna;
    QString expresion;
    QVariantList valores{};
};

/// Rows that the engine copies by itself into a table that ends in a checksum.
struct CopiaDeFilas {
    QString tabla;
    QList<DatoDeCopia> datos; ///< a column that isn't named gets null
    QString desde;            ///< "FROM ... WHERE ... ORDER BY ...": the rows enter in this order
    QVariantList valores{};   ///< of its `?`
};

/// What each column of the copied table gets but its last one, in their order.
struct CamposDeCopia {
    /// Raises `Error` (`CampoNoExiste`) for a column that the table lacks.
    CamposDeCopia(const Tabla& tabla, const CopiaDeFilas& copia);

    QStringList expresiones;
    QVariantList valores; ///< of the expressions' `?`
};

/// Copies rows, each with its checksum, as a set: for tables of any length. Raises as `Checksum`.
void CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros);

} // namespace xa518
