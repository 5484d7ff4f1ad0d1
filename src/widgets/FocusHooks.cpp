#include "widgets/FocusHooks.h"

#include "widgets/Application.h"

#include <QFocusEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QWidget>

namespace xa518 {

namespace {

constexpr auto kEnTransito = "xa518_focoEnTransito";

bool EnTransito() {
    return qApp->property(kEnTransito).toBool();
}

/// The window lost it, or something that belongs to the field opened: the field isn't left.
bool EsPasajera(Qt::FocusReason motivo) {
    return motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason || motivo == Qt::MenuBarFocusReason;
}

} // namespace

FocoDeCampo::FocoDeCampo(QWidget& campo) : QObject(&campo), m_campo(&campo) {
    campo.installEventFilter(this);
}

FocoDeCampo* FocoDeCampo::Busca(const QWidget& campo) {
    return campo.findChild<FocoDeCampo*>(QString(), Qt::FindDirectChildrenOnly);
}

FocoDeCampo& FocoDeCampo::De(QWidget& campo) {
    FocoDeCampo* foco = Busca(campo);
    return foco ? *foco : *new FocoDeCampo(campo); // the field owns it
}

bool FocoDeCampo::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::FocusIn && !m_dentro && !EnTransito())
        Entra();
    if (evento->type() != QEvent::FocusOut || !m_dentro || SeVa() ||
        EsPasajera(static_cast<QFocusEvent*>(evento)->reason()))
        return QObject::eventFilter(objeto, evento);
    objeto->event(evento); // the field first lets go, so that a handler may give it the focus back
    Sale();
    return true;
}

/// The field is being destroyed: it is no more than a bare widget.
bool FocoDeCampo::SeVa() const {
    return m_campo->metaObject() == &QWidget::staticMetaObject;
}

void FocoDeCampo::Entra() {
    m_dentro = true;
    Protegido([this] {
        for (const auto& manejador : alEntrar)
            manejador();
    })();
}

/// A message of a handler makes the window lose and get the focus, which lands anywhere meanwhile: until the
/// handlers have ended no field counts as entered. A handler that fails keeps the focus like one that refuses.
void FocoDeCampo::Sale() {
    const QPointer<FocoDeCampo> vive(this);
    m_dentro = false;
    m_ultima = Salida::Retenida;
    const auto alFinal = qScopeGuard([vive] {
        if (vive && vive->m_ultima == Salida::Retenida)
            vive->Vuelve();
    });
    qApp->setProperty(kEnTransito, true);
    const auto transito = qScopeGuard([] { qApp->setProperty(kEnTransito, false); });
    Protegido([&] {
        for (const auto& manejador : alSalir)
            if (manejador() == Salida::Retenida || !vive)
                return;
        m_ultima = Salida::Libre;
    })();
}

void FocoDeCampo::Vuelve() {
    m_campo->setFocus(Qt::OtherFocusReason);
    if (!m_dentro)
        Entra();
}

} // namespace xa518
