#include "platform/Form.h"

#include "platform/Application.h"
#include "platform/FieldFocus.h"
#include "platform/ReadablePalette.h"
#include "platform/WidgetHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool EsCampo(const QWidget* control) {
    return qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control) ||
           qobject_cast<const QRadioButton*>(control) || qobject_cast<const QCheckBox*>(control);
}

/// The buttons of a form larger than the screen, as at a large scale, couldn't be reached. Its layout gives way
/// instead.
void CabeEnPantalla(QWidget& forma) {
    const int barra = forma.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize sitio = forma.screen()->availableSize() - QSize(barra, 2 * barra);
    if (forma.testAttribute(Qt::WA_Resized)) // the others take the size of their contents when they show
        forma.resize(forma.size().boundedTo(sitio));
}

/// Scrolling past a list chooses nothing.
class SinRueda final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* /*lista*/, QEvent* evento) override {
        if (evento->type() != QEvent::Wheel)
            return false;
        evento->ignore();
        return true;
    }
};

} // namespace

Forma::Forma(QWidget* padre) : QDialog(padre) {}

void Forma::Prepara(const QList<QAbstractButton*>& salidas) {
    for (QPushButton* boton : findChildren<QPushButton*>()) {
        boton->setAutoDefault(false);
        boton->setDefault(false);
    }
    auto* sinRueda = new SinRueda(this);
    for (QComboBox* lista : findChildren<QComboBox*>())
        lista->installEventFilter(sinRueda);
    AclaraDeshabilitados(*this);
    CuidaElFoco(*this, salidas);
    CabeEnPantalla(*this);
}

void Forma::reject() {
    const QPointer<QWidget> campo = focusWidget();
    (void)SueltaFoco(); // the way out goes on even when the field has a fault
    Protegido([this] { Salir(); })();
    if (isVisible() && campo && focusWidget() == nullptr)
        campo->setFocus(); // the person chose to stay
}

void Forma::AbreModal(QDialog& otra) {
    otra.exec();
    Protegido([this] { AlActivar(); })();
}

void Forma::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape)
        return;
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(evento);
        return;
    }
    QWidget* control = focusWidget();
    if (auto* boton = qobject_cast<QPushButton*>(control))
        boton->click();
    else if (EsCampo(control))
        EnviaTecla(u"TAB"_s);
}

void Forma::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    setAttribute(Qt::WA_KeyboardFocusChange); // lists and buttons show the focus from the first moment, not after a Tab
    if (std::exchange(m_activada, true))
        return;
    FijaMinimo();
    Protegido([this] { AlActivar(); })();
}

/// A text that wraps takes more height in a narrower form, of which the layout's own minimum knows nothing.
void Forma::FijaMinimo() {
    if (layout() && layout()->hasHeightForWidth())
        setMinimumSize(layout()->totalSizeHint().boundedTo(screen()->availableSize()));
}

} // namespace xa518
