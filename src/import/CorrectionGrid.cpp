#include "import/CorrectionGrid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>

#include <algorithm>
#include <limits>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAire = 12;
constexpr int kFilasQueMiden = 50; ///< of a long list: more would take longer than all the rest of its opening
constexpr int kAnchoMaximo = 260;

class DelegadoDeCelda final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& /*opcion*/,
                          const QModelIndex& indice) const override {
        static const QRegularExpression kSinSeparador(u"[^|]*"_s);
        auto* campo = new QLineEdit(padre);
        campo->setFrame(false);
        campo->setMaxLength(std::numeric_limits<int>::max());
        campo->setValidator(new QRegularExpressionValidator(kSinSeparador, campo));
        campo->setAccessibleName(indice.model()->headerData(indice.column(), Qt::Horizontal).toString());
        return campo;
    }

    /// At once: by itself Enter would keep the text only after the keys that are waiting, which may be an order.
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        auto* campo = qobject_cast<QWidget*>(objeto);
        const int tecla = evento->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(evento)->key() : 0;
        if (!campo || (tecla != Qt::Key_Escape && tecla != Qt::Key_Return && tecla != Qt::Key_Enter))
            return QStyledItemDelegate::eventFilter(objeto, evento);
        Q_EMIT commitData(campo);
        Q_EMIT closeEditor(campo, NoHint);
        return true;
    }
};

} // namespace

GrillaDeCorreccion::GrillaDeCorreccion(QWidget* padre) : QTableView(padre) {
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setItemDelegate(new DelegadoDeCelda(this));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 7 / 4);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setResizeContentsPrecision(kFilasQueMiden);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void GrillaDeCorreccion::Asienta() {
    QWidget* campo = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (!campo)
        return;
    commitData(campo);
    closeEditor(campo, QAbstractItemDelegate::NoHint);
}

void GrillaDeCorreccion::AjustaColumnas() {
    for (int columna = 0; columna < model()->columnCount(); ++columna) {
        const int contenido = std::min(sizeHintForColumn(columna), kAnchoMaximo);
        setColumnWidth(columna, std::max(contenido, horizontalHeader()->sectionSizeHint(columna)) + kAire);
    }
}

void GrillaDeCorreccion::keyPressEvent(QKeyEvent* evento) {
    const bool entra = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (entra && state() != EditingState) {
        if (currentIndex().flags() & Qt::ItemIsEditable)
            edit(currentIndex());
        return;
    }
    QTableView::keyPressEvent(evento);
}

} // namespace xa518
