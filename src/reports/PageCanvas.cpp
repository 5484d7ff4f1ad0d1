#include "reports/PageCanvas.h"

#include "reports/PagePainter.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace xa518 {

namespace {

constexpr int kMargen = 12; ///< of the ground around a page that fits
constexpr int kSombra = 3;
constexpr int kCostoMaximoKb = 96 * 1024;
constexpr qreal kTwipsPorPulgada = 1440;
constexpr qreal kEscalaMinima = 0.1;

const QColor kFondo(0x50, 0x54, 0x5a);
const QColor kColorSombra(0, 0, 0, 90);

} // namespace

FondoVista::FondoVista(QWidget* padre) : QWidget(padre), m_figuras(kCostoMaximoKb) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void FondoVista::PonInforme(InformeSpool* informe) {
    m_informe = informe;
    m_figuras.clear();
    update();
}

void FondoVista::PonPagina(int pagina) {
    m_pagina = pagina;
    update();
}

void FondoVista::PonEscala(qreal escala) {
    if (qFuzzyCompare(escala, m_escala))
        return;
    m_escala = escala;
    m_figuras.clear();
    update();
}

void FondoVista::PonDesplazamiento(QPoint desplazamiento) {
    m_desplazamiento = desplazamiento;
    update();
}

QSize FondoVista::TamanoA(qreal escala) const {
    const QSizeF hoja = TamanoHoja(m_informe != nullptr && m_informe->Cabecera().apaisado);
    return (hoja * (escala * logicalDpiX() / kTwipsPorPulgada)).toSize();
}

qreal FondoVista::EscalaDeAncho() const {
    return std::max(kEscalaMinima, qreal(width() - 2 * kMargen) / TamanoA(1).width());
}

qreal FondoVista::EscalaDePagina() const {
    return std::max(kEscalaMinima, std::min(EscalaDeAncho(), qreal(height() - 2 * kMargen) / TamanoA(1).height()));
}

QRect FondoVista::Sitio() const {
    const QSize pagina = TamanoPagina();
    const auto lugar = [](int fondo, int lado, int desplazado) {
        return lado <= fondo ? (fondo - lado) / 2 : desplazado;
    };
    return {QPoint(lugar(width(), pagina.width(), m_desplazamiento.x()),
                   lugar(height(), pagina.height(), m_desplazamiento.y())),
            pagina};
}

QPixmap FondoVista::Figura() {
    if (const QPixmap* hecha = m_figuras.object(m_pagina))
        return *hecha;
    QPixmap figura = Dibuja();
    constexpr qsizetype kBytesPorPunto = 4;
    const qsizetype costo = qsizetype(figura.width()) * figura.height() * kBytesPorPunto / 1024;
    m_figuras.insert(m_pagina, new QPixmap(figura), costo); // the cache owns it
    return figura;
}

/// Texts are black: paper stays light where the desktop is dark.
QPixmap FondoVista::Dibuja() const {
    const QSize pagina = TamanoPagina();
    QPixmap figura(pagina * devicePixelRatio());
    figura.setDevicePixelRatio(devicePixelRatio());
    const QColor papel = m_informe == nullptr ? QColor(Qt::white)
                                              : ColorDe(m_informe->Cabecera().color, palette().color(QPalette::Base));
    constexpr int kClaro = 128;
    figura.fill(papel.lightness() < kClaro ? QColor(Qt::white) : papel);
    if (m_informe != nullptr) {
        QPainter pintor(&figura);
        PintaPagina(pintor, *m_informe, m_pagina, pagina.width());
    }
    return figura;
}

void FondoVista::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pintor(this);
    pintor.fillRect(rect(), kFondo);
    const QRect sitio = Sitio();
    pintor.fillRect(sitio.translated(kSombra, kSombra), kColorSombra);
    pintor.drawPixmap(sitio.topLeft(), Figura());
    if (hasFocus()) {
        pintor.setPen(QPen(palette().color(QPalette::Highlight), 2));
        pintor.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void FondoVista::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    Q_EMIT Redimensionado();
}

void FondoVista::changeEvent(QEvent* evento) {
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::PaletteChange)
        m_figuras.clear();
}

} // namespace xa518
