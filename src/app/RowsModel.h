#pragma once

#include "data/DocumentTypes.h"

#include <QAbstractTableModel>
#include <QStringList>

namespace xa518 {

class Base;

/// The rows of a query for a grid that is only read: the data source of the lists.
class ModeloFilas final : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// One title for each column of the query.
    explicit ModeloFilas(QStringList titulos, QObject* padre = nullptr);

    /// Runs the query and shows what it gives. When it fails, what was shown stays.
    void Lee(Base& base, const ConsultaSql& consulta);
    void Vacia();

    /// The trimmed text of a cell.
    [[nodiscard]] QString Celda(int fila, int columna) const;
    [[nodiscard]] int Filas() const { return static_cast<int>(m_filas.size()); }

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation orientacion, int papel) const override;

  private:
    void Pon(QList<QStringList> filas);

    QStringList m_titulos;
    QList<QStringList> m_filas;
};

} // namespace xa518
