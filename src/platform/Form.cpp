#include "platform/Form.h"

#include "platform/Application.h"
#include "platform/FieldFocus.h"
#include "platform/ReadablePalette.h"
#include "platform/WidgetHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
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

} // namespace

Forma::Forma(QWidget* padre) : QDialog(padre) {}

void Forma::Prepara(const QList<QAbstractButton*>& salidas) {
    for (QPushButton* boton : findChildren<QPushButton*>()) {
        boton->setAutoDefault(false);
        boton->setDefault(false);
    }
    AclaraDeshabilitados(*this);
    CuidaElFoco(*this, salidas);
}

void Forma::reject() {
    (void)SueltaFoco(); // the way out goes on even when the field has a fault
    Protegido([this] { Salir(); })();
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
    if (!std::exchange(m_activada, true))
        Protegido([this] { AlActivar(); })();
}

} // namespace xa518
