#include "launcher/RowTable.h"

#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace xa518 {

TablaFilas::TablaFilas(QWidget* padre) : GrillaDeLectura(padre), m_modelo(new ModeloDeFilas(this)) {
    setModel(m_modelo);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &GrillaDeLectura::FilaActivada, this, &TablaFilas::Decidida);
    connect(this, &GrillaDeLectura::FilaCambiada, this, &TablaFilas::Cambia);
}

void TablaFilas::PonColumnas(const QStringList& titulos) {
    m_modelo->PonTitulos(titulos);
    EnsanchaColumnas();
}

void TablaFilas::Llena(FilasDeLista filas) {
    if (filas.claves == m_modelo->Claves()) {
        m_modelo->Renueva(std::move(filas));
    } else {
        const int anterior = Fila();
        const QString clave = m_modelo->Claves().value(anterior);
        const QSignalBlocker callada(selectionModel());
        m_modelo->Pon(std::move(filas));
        const qsizetype misma = Busca(clave);
        EligeFila(misma >= 0 ? misma : std::min(std::max(anterior, 0), m_modelo->rowCount() - 1));
    }
    EnsanchaColumnas();
    viewport()->update();
    Q_EMIT Cambia();
}

void TablaFilas::Elige(const QString& clave) {
    EligeFila(Busca(clave));
}

void TablaFilas::EligeFila(qsizetype fila) {
    if (fila < 0 || fila >= m_modelo->rowCount())
        return;
    setCurrentIndex(m_modelo->index(static_cast<int>(fila), 0));
}

qsizetype TablaFilas::Busca(const QString& clave) const {
    return m_modelo->Claves().indexOf(clave);
}

void TablaFilas::EnsanchaColumnas() {
    for (int columna = 0; columna < m_modelo->columnCount(); ++columna) {
        const int contenido = sizeHintForColumn(columna) + fontMetrics().averageCharWidth();
        const int necesario = std::max(contenido, horizontalHeader()->sectionSizeHint(columna));
        if (columnWidth(columna) < necesario || m_modelo->rowCount() == 0)
            setColumnWidth(columna, necesario);
    }
}

} // namespace xa518
