#include "widgets/LongTaskBox.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLleno = 1000;
constexpr int kAncho = 360;

} // namespace

CajaDeTarea::CajaDeTarea(const QString& titulo, bool seDetiene, QWidget* padre)
    : QDialog(padre), m_barra(new QProgressBar), m_falta(new QLabel), m_detener(new QPushButton(u"&Detener"_s)) {
    setObjectName(u"CajaDeTarea"_s);
    setWindowTitle(padre->window()->windowTitle());
    setMinimumWidth(kAncho);
    auto* que = new QLabel(titulo + u'…');
    que->setTextFormat(Qt::PlainText);
    m_barra->setRange(0, 0);
    m_barra->setTextVisible(false);
    m_barra->setFocusPolicy(Qt::StrongFocus); // a key held down since before must not press the button
    m_detener->setObjectName(u"CmdDetener"_s);
    m_detener->setAutoDefault(false);
    m_detener->setVisible(seDetiene);
    auto* columna = new QVBoxLayout(this);
    for (QWidget* fila : std::initializer_list<QWidget*>{que, m_barra, m_falta})
        columna->addWidget(fila);
    columna->addWidget(m_detener, 0, Qt::AlignRight);
    connect(m_detener, &QPushButton::clicked, this, [this] { Detiene(); });
    m_barra->setFocus();
}

void CajaDeTarea::Muestra(qint64 hecho, qint64 total, qint64 milisegundos) {
    if (total > 0) {
        m_barra->setRange(0, kLleno);
        m_barra->setValue(static_cast<int>(hecho * kLleno / total));
    }
    if (m_detener->isEnabled())
        m_falta->setText(LoQueFalta(hecho, total, milisegundos));
}

void CajaDeTarea::Detiene() {
    m_detener->setEnabled(false);
    m_falta->setText(u"Deteniendo…"_s);
    Q_EMIT Detener();
}

void CajaDeTarea::keyPressEvent(QKeyEvent* evento) {
    if (!evento->matches(QKeySequence::Cancel))
        QDialog::keyPressEvent(evento);
}

void CajaDeTarea::closeEvent(QCloseEvent* evento) {
    evento->ignore();
}

QString LoQueFalta(qint64 hecho, qint64 total, qint64 milisegundos) {
    constexpr qint64 kParaJuzgar = 1000;
    if (hecho <= 0 || total <= hecho || milisegundos < kParaJuzgar)
        return {};
    const qint64 segundos = milisegundos * (total - hecho) / hecho / 1000 + 1;
    if (segundos == 1)
        return u"Falta cerca de un segundo"_s;
    if (segundos < 60)
        return u"Faltan unos %1 segundos"_s.arg(segundos);
    const qint64 minutos = (segundos + 30) / 60;
    return minutos == 1 ? u"Falta cerca de un minuto"_s : u"Faltan unos %1 minutos"_s.arg(minutos);
}

} // namespace xa518
