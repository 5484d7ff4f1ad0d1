#include "widgets/ScreenFit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Scrolls to whatever gets the focus, by whichever way: Tab, an access key, or a refusal that names its field.
class AreaDeForma final : public QScrollArea {
  public:
    explicit AreaDeForma(QWidget* forma) : QScrollArea(forma) {
        setObjectName(u"AreaDeForma"_s);
        setFrameShape(NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*antes*/, QWidget* campo) {
            if (campo && widget() && widget()->isAncestorOf(campo))
                Alcanza(*campo);
        });
    }

  protected:
    /// The arrows are the form's, which may turn pages by them.
    void keyPressEvent(QKeyEvent* tecla) override { tecla->ignore(); }
    /// What has the keyboard stays in sight in a smaller window, too.
    void resizeEvent(QResizeEvent* evento) override {
        QScrollArea::resizeEvent(evento);
        QWidget* const conFoco = widget() ? widget()->focusWidget() : nullptr;
        if (conFoco && conFoco->hasFocus())
            Alcanza(*conFoco);
    }

  private:
    /// Of what is larger than the area, where it begins.
    void Alcanza(QWidget& campo) {
        ensureWidgetVisible(&campo);
        const QPoint esquina = campo.mapTo(widget(), QPoint());
        ensureVisible(esquina.x(), esquina.y());
    }
};

/// The frame isn't known before the window manager has made it: about a title bar all around, and another on top.
QSize Marco(const QWidget& ventana) {
    const int barra = ventana.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return {barra, 2 * barra};
}

/// The room that the contents take at least. A text that wraps takes more height in a narrower form, of which the
/// layout's own minimum knows nothing.
QSize Necesita(const QLayout& orden, int sitio) {
    const QSize minimo = orden.totalMinimumSize();
    if (!orden.hasHeightForWidth())
        return minimo;
    const int ancho = std::max(minimo.width(), std::min(orden.totalSizeHint().width(), sitio));
    return {ancho, orden.totalHeightForWidth(ancho)};
}

/// The new widgets are the form's own from the first moment on: the order of its fields stays as it is.
void Enrolla(QWidget& forma) {
    QWidget* const conFoco = forma.focusWidget(); // loses it on the way
    auto* area = new AreaDeForma(&forma);
    auto* contenido = new QWidget(area);
    contenido->setLayout(forma.layout());
    area->setWidget(contenido);
    auto* columna = new QVBoxLayout(&forma);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->addWidget(area);
    forma.setMinimumSize(0, 0);
    if (conFoco)
        conFoco->setFocus();
}

void PonDentro(QWidget& forma) {
    const QRect pantalla = forma.screen()->availableGeometry();
    const QSize enmarcada = forma.size() + Marco(forma);
    forma.move(std::clamp(forma.x(), pantalla.left(), pantalla.right() + 1 - enmarcada.width()),
               std::clamp(forma.y(), pantalla.top(), pantalla.bottom() + 1 - enmarcada.height()));
}

} // namespace

QSize SitioEnPantalla(const QWidget& ventana) {
    return ventana.screen()->availableSize() - Marco(ventana);
}

void CabeEnPantalla(QWidget& forma) {
    forma.ensurePolished();
    const QSize sitio = SitioEnPantalla(forma);
    QSize medida =
        forma.testAttribute(Qt::WA_Resized) ? forma.size() : QSize(); // the others take that of their contents
    if (QLayout* orden = forma.layout()) {
        const QSize pide = Necesita(*orden, sitio.width());
        if (pide.boundedTo(sitio) != pide) {
            const int barra = forma.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
            medida = medida.expandedTo(pide + QSize(barra, barra));
            Enrolla(forma);
        } else if (orden->hasHeightForWidth()) {
            forma.setMinimumSize(pide);
        }
    }
    if (!medida.isEmpty())
        forma.resize(medida.boundedTo(sitio));
    if (forma.testAttribute(Qt::WA_Moved))
        PonDentro(forma);
}

} // namespace xa518
