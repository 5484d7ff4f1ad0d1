#include "widgets/ReadGrid.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <numeric>

namespace xa518 {

namespace {

constexpr int kAire = 10;

} // namespace

GrillaDeLectura::GrillaDeLectura(QWidget* padre) : QTableView(padre) {
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    horizontalHeader()->setHighlightSections(false);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& celda) { Q_EMIT FilaActivada(celda.row()); });
}

void GrillaDeLectura::setModel(QAbstractItemModel* modelo) {
    QTableView::setModel(modelo);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& celda) { Q_EMIT FilaCambiada(celda.row()); });
}

void GrillaDeLectura::PonFila(int fila) {
    const int filas = model()->rowCount();
    if (filas == 0)
        return;
    const int vigente = fila >= 0 && fila < filas ? fila : 0;
    setCurrentIndex(model()->index(vigente, std::max(0, currentIndex().column())));
}

void GrillaDeLectura::AjustaColumnas(int principal) {
    m_principal = principal;
    ReparteAncho();
}

/// Where the room is scarce the columns stand closer, and only where they don't fit even so is the grid moved sideways.
void GrillaDeLectura::ReparteAncho() {
    QHeaderView& titulos = *horizontalHeader();
    QList<int> anchos;
    for (int columna = 0; columna < titulos.count(); ++columna) {
        const int contenido = columna == m_principal ? 0 : sizeHintForColumn(columna);
        anchos.append(std::max(contenido, titulos.sectionSizeHint(columna)));
    }
    const int libre = viewport()->width() - std::accumulate(anchos.cbegin(), anchos.cend(), 0);
    const int aire = std::clamp(libre / static_cast<int>(anchos.size()), 0, kAire);
    titulos.setSectionResizeMode(m_principal, QHeaderView::Interactive); // one that stretches takes no width
    for (int columna = 0; columna < anchos.size(); ++columna)
        setColumnWidth(columna, anchos[columna] + aire);
    if (libre >= 0)
        titulos.setSectionResizeMode(m_principal, QHeaderView::Stretch);
}

void GrillaDeLectura::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    if (m_principal >= 0)
        ReparteAncho();
}

void GrillaDeLectura::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter) {
        QTableView::keyPressEvent(evento);
        return;
    }
    if (Fila() >= 0)
        Q_EMIT FilaActivada(Fila());
}

/// The row that the buttons act on always shows: neither a click beside the rows nor Ctrl takes its mark away.
QItemSelectionModel::SelectionFlags GrillaDeLectura::selectionCommand(const QModelIndex& celda,
                                                                      const QEvent* /*evento*/) const {
    using enum QItemSelectionModel::SelectionFlag;
    return celda.isValid() ? ClearAndSelect | Rows : QItemSelectionModel::SelectionFlags(NoUpdate);
}

} // namespace xa518
