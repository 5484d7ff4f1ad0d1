#include "widgets/ReadGrid.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

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
    for (int columna = 0; columna < model()->columnCount(); ++columna) {
        if (columna != principal)
            setColumnWidth(columna,
                           std::max(sizeHintForColumn(columna), horizontalHeader()->sectionSizeHint(columna)) + kAire);
    }
    EstiraPrincipal();
}

/// Where the others leave it no room for its title, the grid is moved sideways instead.
void GrillaDeLectura::EstiraPrincipal() {
    if (m_principal < 0)
        return;
    QHeaderView& titulos = *horizontalHeader();
    int libre = viewport()->width();
    for (int columna = 0; columna < titulos.count(); ++columna)
        libre -= columna == m_principal ? 0 : columnWidth(columna);
    const int minimo = titulos.sectionSizeHint(m_principal) + kAire;
    titulos.setSectionResizeMode(m_principal, libre < minimo ? QHeaderView::Interactive : QHeaderView::Stretch);
    if (libre < minimo)
        setColumnWidth(m_principal, minimo);
}

void GrillaDeLectura::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    EstiraPrincipal();
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
