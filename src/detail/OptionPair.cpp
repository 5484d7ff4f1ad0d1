#include "detail/OptionPair.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

namespace xa518 {

using namespace Qt::StringLiterals;

ParDeOpciones::ParDeOpciones(const QLabel& pregunta, const Opciones& opciones)
    : QObject(&opciones.si), m_grupo(new QButtonGroup(this)), m_no(&opciones.no), m_si(&opciones.si) {
    m_grupo->addButton(m_no, 0);
    m_grupo->addButton(m_si, 1);
    for (QRadioButton* opcion : {m_no, m_si}) {
        opcion->setAccessibleName(pregunta.text() + u' ' + opcion->text());
        opcion->installEventFilter(this);
    }
    connect(m_grupo, &QButtonGroup::idToggled, this, [this](int indice, bool marcada) {
        if (marcada)
            Q_EMIT Contestada(indice);
    });
}

Contestacion ParDeOpciones::Respuesta() const {
    const int indice = m_grupo->checkedId();
    return indice < 0 ? std::nullopt : Contestacion(indice == 1);
}

void ParDeOpciones::Contesta(bool si) {
    (si ? m_si : m_no)->setChecked(true);
}

void ParDeOpciones::Contesta(const QString& codigo) {
    if (codigo == u"1" || codigo == u"0")
        Contesta(codigo == u"1");
}

void ParDeOpciones::Borra() {
    m_grupo->setExclusive(false); // an exclusive group keeps one marked
    m_no->setChecked(false);
    m_si->setChecked(false);
    m_grupo->setExclusive(true);
}

void ParDeOpciones::Activa(bool activo) {
    m_no->setEnabled(activo);
    m_si->setEnabled(activo);
}

bool ParDeOpciones::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        const bool sola = (tecla.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
        if (sola && (tecla.key() == Qt::Key_S || tecla.key() == Qt::Key_N)) {
            QRadioButton* elegida = tecla.key() == Qt::Key_S ? m_si : m_no;
            elegida->setFocus(Qt::ShortcutFocusReason);
            elegida->setChecked(true);
            return true;
        }
    }
    return QObject::eventFilter(objeto, evento);
}

} // namespace xa518
