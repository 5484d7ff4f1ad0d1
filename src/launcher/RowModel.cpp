#include "launcher/RowModel.h"

#include <utility>

namespace xa518 {

namespace {

constexpr int kFilasGuardadas = 1000;

} // namespace

ModeloDeFilas::ModeloDeFilas(QObject* padre) : QAbstractTableModel(padre), m_celdas(kFilasGuardadas) {}

void ModeloDeFilas::PonTitulos(const QStringList& titulos) {
    beginResetModel();
    m_titulos = titulos;
    endResetModel();
}

void ModeloDeFilas::Pon(FilasDeLista filas) {
    beginResetModel();
    m_filas = std::move(filas);
    m_celdas.clear();
    endResetModel();
}

void ModeloDeFilas::Renueva(FilasDeLista filas) {
    m_filas = std::move(filas);
    m_celdas.clear();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int ModeloDeFilas::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_filas.claves.size());
}

int ModeloDeFilas::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_titulos.size());
}

QVariant ModeloDeFilas::data(const QModelIndex& indice, int papel) const {
    if (!indice.isValid() || papel != Qt::DisplayRole)
        return {};
    const int fila = indice.row();
    if (!m_celdas.contains(fila))
        m_celdas.insert(fila, new QStringList(m_filas.celdas(fila))); // the cache owns it
    return m_celdas.object(fila)->value(indice.column());
}

QVariant ModeloDeFilas::headerData(int seccion, Qt::Orientation sentido, int papel) const {
    return sentido == Qt::Horizontal && papel == Qt::DisplayRole ? m_titulos.value(seccion) : QVariant();
}

} // namespace xa518
