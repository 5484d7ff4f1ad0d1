#include "widgets/KeyHint.h"

#include <QApplication>
#include <QLabel>
#include <QToolTip>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAirePista = 3;

/// One for each window, above whatever stands there.
class Pista final : public QLabel {
    Q_OBJECT
  public:
    explicit Pista(QWidget* ventana) : QLabel(ventana) {
        setObjectName(u"LblPista"_s);
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setPalette(QToolTip::palette());
        setForegroundRole(QPalette::ToolTipText);
        setBackgroundRole(QPalette::ToolTipBase);
        setAutoFillBackground(true);
        setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
        setMargin(kAirePista);
        connect(qApp, &QApplication::focusChanged, this, &QWidget::hide);
    }

    static Pista* De(const QWidget& campo) {
        return campo.window()->findChild<Pista*>(QString(), Qt::FindDirectChildrenOnly);
    }

    /// Under the field, or above it where the window ends.
    void Senala(const QWidget& campo) {
        adjustSize();
        const QWidget& ventana = *window();
        QPoint lugar = campo.mapTo(&ventana, QPoint(0, campo.height() + kAirePista));
        if (lugar.y() + height() > ventana.height())
            lugar.ry() -= campo.height() + height() + 2 * kAirePista;
        lugar.setX(std::max(0, std::min(lugar.x(), ventana.width() - width())));
        move(lugar);
        raise();
        show();
    }
};

} // namespace

void MuestraPista(const QWidget& campo, const QString& texto) {
    Pista* pista = Pista::De(campo);
    if (!pista)
        pista = new Pista(campo.window()); // the window owns it
    pista->setText(texto);
    pista->Senala(campo);
}

void QuitaPista(const QWidget& campo) {
    if (Pista* pista = Pista::De(campo))
        pista->hide();
}

} // namespace xa518

#include "KeyHint.moc"
