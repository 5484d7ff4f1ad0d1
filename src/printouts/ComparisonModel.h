#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>

namespace xa518 {

/// A column of a table that compares.
struct ColumnaComparada {
    QString titulo;
    bool derecha = false; ///< amounts
};

/// Rows to look at, whose cells are asked for when they show.
struct FilasComparadas {
    int cuantas = 0;
    std::function<QStringList(int fila)> celdas;
    std::function<bool(int fila)> resalta{}; ///< in bold, what differs among what doesn't
};

class ModeloDeComparacion final : public QAbstractTableModel {
    Q_OBJECT
  public:
    ModeloDeComparacion(QList<ColumnaComparada> columnas, FilasComparadas filas, QObject* padre);

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;

  private:
    QList<ColumnaComparada> m_columnas;
    FilasComparadas m_filas;
};

} // namespace xa518
