#include "widgets/FieldFocus.h"
#include "widgets/FocusHooks.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QButtonGroup>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace xa518 {

namespace {

/// Stands before the widgets of one form and drops what a field with a fault doesn't let go through.
class GuardiaDeFoco final : public QObject {
    Q_OBJECT
  public:
    GuardiaDeFoco(QWidget& forma, const QList<QAbstractButton*>& salidas);
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    [[nodiscard]] bool Pulsado(QWidget& control, const QMouseEvent& raton);
    [[nodiscard]] bool PulsadoBoton(QAbstractButton& boton);
    [[nodiscard]] bool Atajo(QWidget& control, const QShortcutEvent& atajo);
    [[nodiscard]] static bool Entra(QWidget& control, QFocusEvent& foco);

    QList<QAbstractButton*> m_salidas;
};

/// Qt has already moved the focus for this press; the field that was left has pulled it back.
bool SeRetuvo(const QWidget& control) {
    const QWidget* campo = control.window()->focusWidget();
    if (!campo || campo == &control || control.isAncestorOf(campo))
        return false;
    const FocoDeCampo* foco = FocoDeCampo::Busca(*campo);
    return foco && foco->Ultima() == Salida::Retenida;
}

bool TomaFocoAlPulsar(const QWidget& control) {
    return (control.focusPolicy() & Qt::ClickFocus) != 0;
}

/// A list is pressed on its inner area, and takes the focus itself.
const QWidget& ConFocoDe(const QWidget& control) {
    const auto* lista = qobject_cast<const QAbstractScrollArea*>(control.parentWidget());
    return lista && lista->viewport() == &control ? *lista : control;
}

bool EsCambioDeFicha(const QKeyEvent& tecla) {
    const bool esTab = tecla.key() == Qt::Key_Tab || tecla.key() == Qt::Key_Backtab;
    return esTab && tecla.modifiers().testFlag(Qt::ControlModifier);
}

/// The option of its group that is marked, if any.
QAbstractButton* MarcadaCon(const QRadioButton& opcion) {
    if (opcion.group())
        return opcion.group()->checkedButton();
    const auto hermanas = opcion.parent()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
    const auto marcada = std::find_if(hermanas.begin(), hermanas.end(), [](const QRadioButton* hermana) {
        return !hermana->group() && hermana->isChecked();
    });
    return marcada == hermanas.end() ? nullptr : *marcada;
}

GuardiaDeFoco::GuardiaDeFoco(QWidget& forma, const QList<QAbstractButton*>& salidas)
    : QObject(&forma), m_salidas(salidas) {
    for (QWidget* control : forma.findChildren<QWidget*>())
        control->installEventFilter(this);
}

bool GuardiaDeFoco::eventFilter(QObject* objeto, QEvent* evento) {
    auto& control = *static_cast<QWidget*>(objeto);
    switch (evento->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: return Pulsado(control, *static_cast<QMouseEvent*>(evento));
    case QEvent::Shortcut: return Atajo(control, *static_cast<QShortcutEvent*>(evento));
    case QEvent::FocusIn: return Entra(control, *static_cast<QFocusEvent*>(evento));
    case QEvent::Wheel: return qobject_cast<QTabBar*>(objeto) && SueltaFoco(&control) == Salida::Retenida;
    case QEvent::KeyPress:
        return qobject_cast<QTabWidget*>(objeto) && EsCambioDeFicha(*static_cast<QKeyEvent*>(evento)) &&
               SueltaFoco(static_cast<QTabWidget*>(objeto)->tabBar()) == Salida::Retenida;
    default: return QObject::eventFilter(objeto, evento);
    }
}

bool GuardiaDeFoco::Pulsado(QWidget& control, const QMouseEvent& raton) {
    if (raton.button() != Qt::LeftButton)
        return false;
    if (auto* boton = qobject_cast<QAbstractButton*>(&control))
        return PulsadoBoton(*boton);
    if (const auto* fichas = qobject_cast<QTabBar*>(&control)) {
        const int ficha = fichas->tabAt(raton.position().toPoint());
        return ficha >= 0 && ficha != fichas->currentIndex() && SueltaFoco(&control) == Salida::Retenida;
    }
    const QWidget& conFoco = ConFocoDe(control);
    return TomaFocoAlPulsar(conFoco) && SeRetuvo(conFoco);
}

/// A message of the leave handler swallows the button's release: then the press alone is the click.
bool GuardiaDeFoco::PulsadoBoton(QAbstractButton& boton) {
    const bool retenido = TomaFocoAlPulsar(boton) ? SeRetuvo(boton) : SueltaFoco(&boton) == Salida::Retenida;
    if (retenido && !m_salidas.contains(&boton))
        return true;
    if (!retenido && QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        return false;
    boton.click();
    return true;
}

/// A mnemonic doesn't move the focus by itself. It presses its button at once: the toolkit would show it sunk for a
/// tenth of a second first, and what a fast hand types meanwhile would land in the old place.
bool GuardiaDeFoco::Atajo(QWidget& control, const QShortcutEvent& atajo) {
    auto* boton = qobject_cast<QAbstractButton*>(&control);
    if (!boton && !qobject_cast<QTabBar*>(&control))
        return false;
    if (SueltaFoco(&control) == Salida::Retenida && !m_salidas.contains(boton))
        return true;
    if (!boton || atajo.isAmbiguous())
        return false;
    if (boton->isCheckable() && TomaFocoAlPulsar(*boton))
        boton->setFocus(Qt::ShortcutFocusReason);
    boton->click();
    return true;
}

/// Whoever comes into a group of options stands on the marked one: on another, the space bar would change the answer
/// unseen. The option that is clicked, or called by its letter, is about to be marked itself.
bool GuardiaDeFoco::Entra(QWidget& control, QFocusEvent& foco) {
    const auto* opcion = qobject_cast<QRadioButton*>(&control);
    if (!opcion || foco.reason() == Qt::MouseFocusReason || foco.reason() == Qt::ShortcutFocusReason)
        return false;
    QAbstractButton* marcada = MarcadaCon(*opcion);
    if (!marcada || marcada == opcion || !marcada->isEnabled())
        return false;
    static_cast<QObject&>(control).event(&foco); // the option first takes what it then hands on
    marcada->setFocus(foco.reason());
    return true;
}

} // namespace

void CuidaElFoco(QWidget& forma, const QList<QAbstractButton*>& salidas) {
    new GuardiaDeFoco(forma, salidas); // the form owns it
}

} // namespace xa518

#include "FocusCare.moc"
