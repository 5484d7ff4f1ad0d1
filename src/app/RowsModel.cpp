#include "app/RowsModel.h"

#include "data/Base.h"
#include "values/Text.h"

namespace xa518 {

ModeloFilas::ModeloFilas(QStringList titulos, QObject* padre)
    : QAbstractTableModel(padre), m_titulos(std::move(titulos)) {}

void ModeloFilas::Lee(Base& base, const ConsultaSql& consulta) {
    QList<QStringList> filas;
    Registros registros = base.Lee(consulta.texto, QVariantList(consulta.valores.begin(), consulta.valores.end()));
    while (registros.Siguiente()) {
        QStringList fila;
        for (int columna = 0; columna < m_titulos.size(); ++columna)
            fila.append(registros.Texto(columna));
        filas.append(std::move(fila));
    }
    Pon(std::move(filas));
}

void ModeloFilas::Vacia() {
    Pon({});
}

void ModeloFilas::Pon(QList<QStringList> filas) {
    beginResetModel();
    m_filas = std::move(filas);
    endResetModel();
}

QString ModeloFilas::Celda(int fila, int columna) const {
    return Recorta(m_filas.value(fila).value(columna)).toString();
}

int ModeloFilas::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : Filas();
}

int ModeloFilas::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_titulos.size());
}

QVariant ModeloFilas::data(const QModelIndex& indice, int papel) const {
    return papel == Qt::DisplayRole ? QVariant(m_filas[indice.row()][indice.column()]) : QVariant();
}

QVariant ModeloFilas::headerData(int seccion, Qt::Orientation orientacion, int papel) const {
    if (orientacion != Qt::Horizontal)
        return {};
    if (papel == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return papel == Qt::DisplayRole ? QVariant(m_titulos.value(seccion)) : QVariant();
}

} // namespace xa518
