#pragma once

#include <QList>
#include <QString>
#include <QVariantList>

namespace xa518 {

class Base;
class Registro;
struct ClaveCliente;

/// A work table, and what stands beside it for the undo.
struct TablaDeTrabajo {
    QString nombre;
    QString borradas; ///< the rows that the last delete took away
    QString sufijo;   ///< of its columns in the table of runs
};

[[nodiscard]] const TablaDeTrabajo& TablaDeClientes();
[[nodiscard]] const TablaDeTrabajo& TablaDeComprobantes();
[[nodiscard]] const TablaDeTrabajo& TablaDePagos();
/// In the order of a delete: what hangs on another row before that row.
[[nodiscard]] const QList<TablaDeTrabajo>& TablasPorDependencia();

/// The numbers by which the rows of the work tables are told: each in the order of its entry, and none given twice
/// while a run or the last delete still speaks of it.
class OrdenDeTrabajo {
  public:
    explicit OrdenDeTrabajo(Base& base);

    /// The column of the number, without its table.
    [[nodiscard]] const QString& Columna() const { return m_columna; }
    /// The same, spoken of by the table or its alias.
    [[nodiscard]] QString De(const QString& tabla) const;

    /// The greatest number that a run or the last delete speaks of; 0 for none.
    [[nodiscard]] qint64 Piso(const TablaDeTrabajo& tabla) const;
    /// The greatest number of a row; 0 without rows.
    [[nodiscard]] qint64 Ultimo(const TablaDeTrabajo& tabla) const;

    // Rows by hand, each by itself.

    /// Adds a row behind all others. As `Base::Agrega`.
    void Agrega(const TablaDeTrabajo& tabla, const Registro& fila) const;
    /// Notes that a row of a run, found by a condition (" WHERE ..."), isn't any more as the run has left it.
    void AnotaCambio(const TablaDeTrabajo& tabla, const QString& condicion, const QVariantList& valores) const;
    /// Notes that the client's vouchers aren't any more those that a run has found or left.
    void AnotaCliente(const ClaveCliente& cliente) const;

  private:
    Base* m_base;
    QString m_columna;
};

} // namespace xa518
