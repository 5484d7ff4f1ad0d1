#include "launcher/RowTable.h"

#include <QHeaderView>
#include <QStandardItemModel>

#include <algorithm>

namespace xa518 {

TablaFilas::TablaFilas(QWidget* padre) : GrillaDeLectura(padre), m_modelo(new QStandardItemModel(this)) {
    setModel(m_modelo);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &GrillaDeLectura::FilaActivada, this, &TablaFilas::Decidida);
    connect(this, &GrillaDeLectura::FilaCambiada, this, &TablaFilas::Cambia);
}

void TablaFilas::PonColumnas(const QStringList& titulos) {
    m_modelo->setHorizontalHeaderLabels(titulos);
    EnsanchaColumnas();
}

void TablaFilas::Llena(const QList<FilaDeLista>& filas) {
    if (filas == m_filas)
        return;
    const int anterior = Fila();
    const QString clave = anterior < 0 ? QString() : m_filas.at(anterior).clave;
    m_filas = filas;
    {
        const QSignalBlocker callada(selectionModel());
        PonFilas();
        const qsizetype misma = Busca(clave);
        EligeFila(misma >= 0 ? misma : std::min<qsizetype>(std::max(anterior, 0), m_filas.size() - 1));
    }
    EnsanchaColumnas();
    viewport()->update();
    Q_EMIT Cambia();
}

void TablaFilas::Elige(const QString& clave) {
    EligeFila(Busca(clave));
}

void TablaFilas::PonFilas() {
    m_modelo->setRowCount(0);
    for (const FilaDeLista& fila : m_filas) {
        QList<QStandardItem*> celdas;
        for (const QString& texto : fila.celdas)
            celdas.append(new QStandardItem(texto)); // the model owns them
        m_modelo->appendRow(celdas);
    }
}

void TablaFilas::EligeFila(qsizetype fila) {
    if (fila < 0 || fila >= m_filas.size())
        return;
    setCurrentIndex(m_modelo->index(static_cast<int>(fila), 0));
}

qsizetype TablaFilas::Busca(const QString& clave) const {
    const auto fila = std::find_if(m_filas.cbegin(), m_filas.cend(),
                                   [&](const FilaDeLista& candidata) { return candidata.clave == clave; });
    return fila == m_filas.cend() ? -1 : fila - m_filas.cbegin();
}

void TablaFilas::EnsanchaColumnas() {
    for (int columna = 0; columna < m_modelo->columnCount(); ++columna) {
        const int contenido = sizeHintForColumn(columna) + fontMetrics().averageCharWidth();
        const int necesario = std::max(contenido, horizontalHeader()->sectionSizeHint(columna));
        if (columnWidth(columna) < necesario || m_filas.isEmpty())
            setColumnWidth(columna, necesario);
    }
}

} // namespace xa518
