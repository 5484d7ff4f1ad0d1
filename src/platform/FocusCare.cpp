#include "platform/FieldFocus.h"
#include "platform/FocusHooks.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>

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

} // namespace

void CuidaElFoco(QWidget& forma, const QList<QAbstractButton*>& salidas) {
    new GuardiaDeFoco(forma, salidas); // the form owns it
}

} // namespace xa518

#include "FocusCare.moc"
