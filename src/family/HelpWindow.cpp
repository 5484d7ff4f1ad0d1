#include "family/HelpWindow.h"

#include "family/FrmAyuda.h"
#include "platform/Notices.h"
#include "values/Error.h"
#include "widgets/ActiveForm.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The topic of the form that holds a control, or that a message stands over: its number, or else its name.
QString ContextoDe(const QWidget& control) {
    const QWidget* forma = control.window();
    while (qobject_cast<const QMessageBox*>(forma) && forma->parentWidget())
        forma = forma->parentWidget()->window();
    const int numero = forma->property("contextoAyuda").toInt();
    return numero != 0 ? QString::number(numero) : forma->objectName();
}

} // namespace

Ayuda::Ayuda(Avisos& avisos, QObject* padre) : QObject(padre), m_avisos(&avisos) {
    qApp->installEventFilter(this);
}

Ayuda::~Ayuda() = default;

void Ayuda::MuestraContenido() {
    if (FrmAyuda* ventana = Ventana())
        ventana->MuestraContenido();
}

void Ayuda::Muestra(const QString& contexto) {
    if (FrmAyuda* ventana = Ventana())
        ventana->Muestra(contexto);
}

/// A modal form lets only its own windows work: the help window belongs to the form in front, and goes with it.
FrmAyuda* Ayuda::Ventana() {
    QWidget* forma = FormaActiva();
    if (m_ventana && (m_ventana == forma || m_ventana->parentWidget() == forma))
        return m_ventana;
    delete m_ventana;
    try {
        m_ventana = new FrmAyuda(m_ruta, forma);
    } catch (const Error& falla) {
        m_avisos->Muestra({Icono::Exclamacion, falla.Texto(), {}});
    }
    return m_ventana;
}

bool Ayuda::eventFilter(QObject* objeto, QEvent* evento) {
    const auto* control = qobject_cast<QWidget*>(objeto);
    if (!control || evento->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(evento)->key() != Qt::Key_F1)
        return QObject::eventFilter(objeto, evento);
    if (control->window() != m_ventana)
        Muestra(ContextoDe(*control));
    return true;
}

} // namespace xa518
