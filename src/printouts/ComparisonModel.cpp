#include "printouts/ComparisonModel.h"

#include <QFont>

#include <utility>

namespace xa518 {

ModeloDeComparacion::ModeloDeComparacion(QList<ColumnaComparada> columnas, FilasComparadas filas, QObject* padre)
    : QAbstractTableModel(padre), m_columnas(std::move(columnas)), m_filas(std::move(filas)) {}

int ModeloDeComparacion::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : m_filas.cuantas;
}

int ModeloDeComparacion::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_columnas.size());
}

QVariant ModeloDeComparacion::data(const QModelIndex& indice, int papel) const {
    if (!indice.isValid())
        return {};
    if (papel == Qt::DisplayRole)
        return m_filas.celdas(indice.row()).value(indice.column());
    if (papel == Qt::TextAlignmentRole && m_columnas.at(indice.column()).derecha)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    if (papel == Qt::FontRole && m_filas.resalta && m_filas.resalta(indice.row())) {
        QFont negrita;
        negrita.setBold(true);
        return negrita;
    }
    return {};
}

QVariant ModeloDeComparacion::headerData(int seccion, Qt::Orientation sentido, int papel) const {
    if (sentido != Qt::Horizontal)
        return {};
    if (papel == Qt::DisplayRole)
        return m_columnas.at(seccion).titulo;
    if (papel == Qt::TextAlignmentRole && m_columnas.at(seccion).derecha)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    return {};
}

} // namespace xa518
