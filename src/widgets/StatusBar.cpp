#include "widgets/StatusBar.h"

#include "widgets/WidgetHelpers.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QtMath>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

/// A label of one line that ends in dots where its place ends.
class EtiquetaRecortada final : public QLabel {
  public:
    explicit EtiquetaRecortada(const QString& descripcion) {
        setTextFormat(Qt::PlainText);
        setAccessibleName(descripcion);
        setContentsMargins(kMargen, 0, kMargen, 0);
    }

    /// Shown before a text that isn't empty.
    void PonRotulo(const QString& rotulo) { m_rotulo = rotulo; }
    /// Keeps room for a text of so many digits or letters, also while it is empty.
    void Reserva(int caracteres) { m_reserva = caracteres; }

    [[nodiscard]] const QString& Texto() const { return m_texto; }

    void PonTexto(const QString& texto) {
        m_texto = texto;
        setText(texto.isEmpty() ? texto : m_rotulo + texto);
        PonSugerencia(*this, text());
        updateGeometry();
    }

    [[nodiscard]] QSize sizeHint() const override {
        const QFontMetricsF medida(font());
        const qreal ancho =
            std::max(medida.horizontalAdvance(m_rotulo + QString(m_reserva, u'0')), medida.horizontalAdvance(text()));
        return {qCeil(ancho) + 1 + 2 * kMargen, QLabel::sizeHint().height()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return {2 * kMargen, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* /*evento*/) override {
        QPainter pintor(this);
        const QRect sitio = contentsRect();
        const QString cabe = fontMetrics().elidedText(text(), Qt::ElideRight, sitio.width());
        style()->drawItemText(&pintor, sitio, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), cabe,
                              foregroundRole());
    }

  private:
    static constexpr int kMargen = 6;
    QString m_rotulo;
    QString m_texto;
    int m_reserva = 0;
};

BarradeEstadoQMD::BarradeEstadoQMD(QWidget* padre)
    : QStatusBar(padre)
    , m_mensaje(new EtiquetaRecortada(u"Mensaje"_s))
    , m_nombre(new EtiquetaRecortada(u"Nombre del declarante"_s))
    , m_ruc(new EtiquetaRecortada(u"RUC del declarante"_s))
    , m_periodo(new EtiquetaRecortada(u"Período tributario"_s))
    , m_formulario(new EtiquetaRecortada(u"Número de formulario"_s)) {
    m_mensaje->setObjectName(u"PanelMensaje"_s);
    m_nombre->setObjectName(u"PanelNombre"_s);
    m_mensaje->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(m_mensaje, 2);
    addPermanentWidget(m_nombre, 3);
    AgregaPanelFijo(*m_ruc, "PanelRuc"_L1, u"RUC: "_s, 11);
    AgregaPanelFijo(*m_periodo, "PanelPeriodo"_L1, u"Período: "_s, 7);
    AgregaPanelFijo(*m_formulario, "PanelFormulario"_L1, u"Formulario: "_s, 4);
}

void BarradeEstadoQMD::AgregaPanelFijo(EtiquetaRecortada& panel, QLatin1StringView nombre, const QString& rotulo,
                                       int caracteres) {
    panel.setObjectName(nombre);
    panel.PonRotulo(rotulo);
    panel.Reserva(caracteres);
    panel.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    addPermanentWidget(&panel);
}

QString BarradeEstadoQMD::Formulario() const {
    return m_formulario->Texto();
}

QString BarradeEstadoQMD::Ruc() const {
    return m_ruc->Texto();
}

QString BarradeEstadoQMD::Nombre() const {
    return m_nombre->Texto();
}

QString BarradeEstadoQMD::Periodo() const {
    return m_periodo->Texto();
}

QString BarradeEstadoQMD::Mensaje() const {
    return m_mensaje->Texto();
}

void BarradeEstadoQMD::PonFormulario(const QString& texto) {
    m_formulario->PonTexto(texto);
}

void BarradeEstadoQMD::PonRuc(const QString& texto) {
    m_ruc->PonTexto(texto);
}

void BarradeEstadoQMD::PonNombre(const QString& texto) {
    m_nombre->PonTexto(texto);
}

void BarradeEstadoQMD::PonPeriodo(const QString& texto) {
    m_periodo->PonTexto(texto);
}

void BarradeEstadoQMD::PonMensaje(const QString& texto) {
    m_mensaje->PonTexto(texto);
}

void BarradeEstadoQMD::Limpia(const QString& formulario) {
    PonRuc({});
    PonNombre({});
    PonPeriodo({});
    PonFormulario(formulario);
}

} // namespace xa518
