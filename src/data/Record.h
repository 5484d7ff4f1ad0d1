#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <utility>
#include <vector>

namespace xa518 {

class Registros;

struct Columna {
    QString nombre;
    bool entera = false; ///< declared INTEGER; every other column is text
};

/// A table as the database declares it: its columns in their order, the checksum's last.
struct Tabla {
    QString nombre;
    QList<Columna> columnas;
    QString sqlAlta; ///< the insert of a whole row, one `?` per column

    /// The position of a column, its name without case; raises `Error` (`CampoNoExiste`) when there is none.
    [[nodiscard]] int Indice(QStringView columna) const;
};

/// The values of one row, null until they are put, in the table's own column order.
class Registro {
  public:
    explicit Registro(const Tabla& tabla);

    Registro& Pon(QStringView columna, QVariant valor) { return Pon(m_tabla->Indice(columna), std::move(valor)); }
    Registro& Pon(int columna, QVariant valor);

    [[nodiscard]] const Tabla& DeTabla() const { return *m_tabla; }
    [[nodiscard]] const QVariantList& Valores() const { return m_valores; }
    [[nodiscard]] const QVariant& Valor(QStringView columna) const { return m_valores[m_tabla->Indice(columna)]; }

    /// A text column's value trimmed, a number as text, null as the empty text.
    [[nodiscard]] QString TextoDe(int columna) const;

  private:
    const Tabla* m_tabla;
    QVariantList m_valores;
};

/// Copies the columns that a source row and a target table have under the same names; resolved once per loop.
class CopiaColumnas {
  public:
    CopiaColumnas(const Registros& origen, const Tabla& destino, const QStringList& columnas);
    void Copia(const Registros& origen, Registro& destino) const;

  private:
    std::vector<std::pair<int, int>> m_pares;
};

} // namespace xa518
