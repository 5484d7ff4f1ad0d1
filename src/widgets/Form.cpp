#include "widgets/Form.h"

#include "widgets/Application.h"
#include "widgets/FieldFocus.h"
#include "widgets/ReadablePalette.h"
#include "widgets/ScreenFit.h"
#include "widgets/WidgetHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool EsCampo(const QWidget* control) {
    return qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control) ||
           qobject_cast<const QRadioButton*>(control) || qobject_cast<const QCheckBox*>(control);
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
    for (QComboBox* lista : findChildren<QComboBox*>()) {
        lista->installEventFilter(sinRueda);
        if (lista->isEditable())
            lista->setCompleter(nullptr); // Enter would put an item of its choice in the place of what stands there
    }
    ComoTextoLlano(*this);
    AclaraDeshabilitados(*this);
    CuidaElFoco(*this, salidas);
}

void Forma::reject() {
    const QPointer<QWidget> campo = focusWidget();
    (void)SueltaFoco(); // the way out goes on even when the field has a fault
    Protegido([this] { Salir(); })();
    if (isVisible() && campo && focusWidget() == nullptr)
        campo->setFocus(); // the person chose to stay
}

void Forma::AbreModal(QDialog& otra) {
    EjecutaSobre(*this, otra);
    Protegido([this] { AlActivar(); })();
}

void Forma::setVisible(bool visible) {
    if (visible && !m_activada)
        CabeEnPantalla(*this);
    QDialog::setVisible(visible);
}

void Forma::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        if (m_saleConEsc)
            reject();
        return;
    }
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
    Protegido([this] { AlActivar(); })();
}

} // namespace xa518
