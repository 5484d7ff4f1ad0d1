#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <span>
#include <vector>

namespace xa518 {

class Base;
class Registros;

/// The query of a long list, in the parts of which its two readings are made: which rows it has, and what they hold.
struct ConsultaDeLista {
    QString columnas;       ///< "A.x, B.y"
    QString desde;          ///< "FROM t AS A, u AS B"
    QStringList tablas;     ///< those of `desde`, by their aliases: each row of the list takes one row of each
    QString vinculo{};      ///< what joins them, "A.x = B.x"; empty for one table
    QString filtro{};       ///< which rows are meant; empty for all
    QString orden{};        ///< "ORDER BY ..."; empty for the order in which the first table's rows were entered
    QVariantList valores{}; ///< of the filter's `?`
};

/// The rows of a query as they stood when it was run, in their order. What is kept of each is where it lies, so that
/// any of them is found at once; what it holds is read when it is asked for, and no statement stays open in between,
/// which would keep other programs from writing.
class ListaLarga {
  public:
    /// Finds the rows; raises `ErrorBase`. The base must outlive the list.
    ListaLarga(Base& base, ConsultaDeLista consulta);

    [[nodiscard]] int Filas() const;
    /// The columns of rows that follow one another, as texts; those of a row that has gone since are none. Raises
    /// `ErrorBase`.
    [[nodiscard]] std::vector<QStringList> Lee(int primera, int cuantas) const;

  private:
    using Lugar = std::vector<qint64>; ///< the number of the row in each table

    void LeeGrupo(const QString& sql, size_t primera, std::span<QStringList> leidas) const;
    [[nodiscard]] Lugar LugarDe(const Registros& fila) const;

    Base* m_base;
    ConsultaDeLista m_consulta;
    QStringList m_numeros; ///< the columns that give those
    std::vector<qint64> m_lugares;
};

} // namespace xa518
