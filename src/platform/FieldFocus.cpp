#include "platform/FieldFocus.h"

#include "data/ObjetoUtil.h"
#include "platform/FieldKeys.h"
#include "platform/FocusHooks.h"
#include "values/Text.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopeGuard>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargoDeSerie = 4;
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
    if (evento->type() == QEvent::FocusIn && !m_dentro && !EnTransito()) Entra();
    if (evento->type() != QEvent::FocusOut || !m_dentro || !m_campo->window()->isVisible() ||
        EsPasajera(static_cast<QFocusEvent*>(evento)->reason()))
        return QObject::eventFilter(objeto, evento);
    objeto->event(evento); // the field first lets go, so that a handler may give it the focus back
    Sale();
    return true;
}

void FocoDeCampo::Entra() {
    m_dentro = true;
    for (const auto& manejador : m_alEntrar)
        manejador();
}

/// A message of a handler makes the window lose and get the focus, which lands anywhere meanwhile: until the
/// handlers have ended no field counts as entered. A handler that fails keeps the focus like one that refuses.
void FocoDeCampo::Sale() {
    const QPointer<FocoDeCampo> vive(this);
    m_dentro = false;
    m_ultima = Salida::Retenida;
    const auto alFinal = qScopeGuard([vive] {
        if (vive && vive->m_ultima == Salida::Retenida) vive->Vuelve();
    });
    qApp->setProperty(kEnTransito, true);
    const auto transito = qScopeGuard([] { qApp->setProperty(kEnTransito, false); });
    for (const auto& manejador : m_alSalir)
        if (manejador() == Salida::Retenida || !vive) return;
    m_ultima = Salida::Libre;
}

void FocoDeCampo::Vuelve() {
    m_campo->setFocus(Qt::OtherFocusReason);
    if (!m_dentro) Entra();
}

void AlEntrar(QWidget& campo, std::function<void()> manejador) {
    FocoDeCampo::De(campo).m_alEntrar.append(std::move(manejador));
}

void AlSalir(QWidget& campo, std::function<Salida()> manejador) {
    FocoDeCampo::De(campo).m_alSalir.append(std::move(manejador));
}

void FormatosDeFoco(QLineEdit& campo, FormatoDeCampo alEntrar, FormatoDeCampo alSalir) {
    const auto aplica = [&campo](const FormatoDeCampo& formato) {
        const QString texto = campo.text();
        if (!Recorta(texto).isEmpty()) campo.setText(formato(texto));
    };
    TextoSinCorte(campo);
    AlEntrar(campo, [aplica, alEntrar = std::move(alEntrar)] { aplica(alEntrar); });
    AlSalir(campo, [aplica, alSalir = std::move(alSalir)] {
        aplica(alSalir);
        return Salida::Libre;
    });
}

void CompletaConCeros(QLineEdit& campo, std::function<int()> ancho) {
    AlSalir(campo, [&campo, ancho = std::move(ancho)] {
        if (!campo.text().isEmpty()) campo.setText(ObjetoUtil::CompletaIzquierda(campo.text(), ancho(), u'0'));
        return Salida::Libre;
    });
}

void CompletaSerie(QLineEdit& campo) {
    AlSalir(campo, [&campo] {
        const QString serie = campo.text();
        if (!serie.isEmpty()) LimitaTecleo(campo, kLargoDeSerie);
        if (!Recorta(serie).isEmpty() && std::none_of(serie.begin(), serie.end(), EsLetra))
            campo.setText(ObjetoUtil::CompletaIzquierda(serie, kLargoDeSerie, u'0'));
        return Salida::Libre;
    });
}

Salida SueltaFoco(QWidget* destino) {
    QWidget* campo = QApplication::focusWidget();
    if (!campo || campo == destino) return Salida::Libre;
    const QPointer<FocoDeCampo> foco = FocoDeCampo::Busca(*campo);
    if (destino)
        destino->setFocus(Qt::OtherFocusReason);
    else
        campo->clearFocus();
    return foco ? foco->Ultima() : Salida::Libre;
}

} // namespace xa518
