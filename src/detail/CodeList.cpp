#include "detail/CodeList.h"

#include "data/DocumentTypes.h"
#include "detail/ClientLayout.h"
#include "detail/VoucherTypes.h"
#include "form518/FormCatalogs.h"
#include "values/Text.h"
#include "widgets/WidgetHelpers.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStylePainter>

#include <utility>

namespace xa518 {

namespace {

constexpr int kTodos = 40;
constexpr int kLargoCodigo = 2;
constexpr int kLargoVisible = 15;
constexpr int kLargoItemTipo = 45;

} // namespace

ListaCodigos::ListaCodigos(QWidget* padre) : QComboBox(padre), m_visiblesCerrada(kTodos) {
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::currentIndexChanged, this, [this](int indice) {
        if (indice >= 0)
            Q_EMIT Elegido();
    });
}

void ListaCodigos::Llena(const QStringList& items, int visibles) {
    const QSignalBlocker callada(this); // the first item of a list chooses itself
    clear();
    for (const QString& item : items)
        addItem(Recorta(item.left(visibles)).toString(), item);
    setCurrentIndex(-1);
}

void ListaCodigos::PonVisiblesCerrada(int caracteres) {
    m_visiblesCerrada = caracteres;
    setMinimumContentsLength(caracteres);
}

QString ListaCodigos::Codigo() const {
    return CodigoDeItem(Item());
}

bool ListaCodigos::Elige(const QString& codigo) {
    return EligeSi([&codigo](const QString& otro) { return otro == codigo; });
}

bool ListaCodigos::Elige(CodigoDocumento codigo) {
    return EligeSi([codigo](const QString& otro) { return CodigoDocumento::De(otro) == codigo; });
}

template <typename Condicion>
bool ListaCodigos::EligeSi(const Condicion& esEste) {
    for (int i = 0; i < count(); ++i) {
        if (esEste(CodigoDeItem(itemData(i).toString()))) {
            setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

void ListaCodigos::keyPressEvent(QKeyEvent* evento) {
    const QString texto = evento->text();
    if (evento->modifiers() == Qt::NoModifier && RecorreLista(evento->key()))
        showPopup();
    else if (!texto.isEmpty() && EsDigito(texto.front()))
        Teclea(texto.front());
    else
        QComboBox::keyPressEvent(evento);
}

/// Only a whole code chooses, because a choice may move the focus on.
void ListaCodigos::Teclea(QChar digito) {
    m_tecleado += digito;
    if (m_tecleado.size() == kLargoCodigo)
        Elige(std::exchange(m_tecleado, {}));
}

void ListaCodigos::focusOutEvent(QFocusEvent* evento) {
    m_tecleado.clear();
    QComboBox::focusOutEvent(evento);
}

void ListaCodigos::paintEvent(QPaintEvent* /*evento*/) {
    QStylePainter pincel(this);
    QStyleOptionComboBox opcion;
    initStyleOption(&opcion);
    opcion.currentText = opcion.currentText.left(m_visiblesCerrada);
    pincel.drawComplexControl(QStyle::CC_ComboBox, opcion);
    pincel.drawControl(QStyle::CE_ComboBoxLabel, opcion);
}

void LlenaTiposDeDocumento(ListaCodigos& lista, Base& base, CodigoDocumento enMano) {
    QStringList items;
    for (const TipoDocumento& tipo : DocumentosOfrecidos(base, UsosDocumento::kEnSujetos))
        items.append(ItemDe(tipo));
    if (const std::optional<TipoDocumento> tipo = DocumentoDeTipo(base, enMano); tipo && !items.contains(ItemDe(*tipo)))
        items.append(ItemDe(*tipo));
    lista.PonVisiblesCerrada(kLargoVisible);
    lista.Llena(items, TramosItemDocumento::kLargo.inicio - 1);
    FijaAnchoCombo(lista, lista, kLargoVisible);
}

void LlenaTiposDeComprobante(ListaCodigos& lista, const QStringList& items) {
    lista.PonVisiblesCerrada(kLargoCodigo);
    lista.Llena(items, kLargoItemTipo);
    AjustaCombo(lista, lista);
}

} // namespace xa518
