#include "app/Logo.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace xa518 {

namespace {

constexpr qreal kLadoLogo = 96;

void PintaFondo(QPainter& pintor) {
    QLinearGradient cielo(0, 0, kLadoLogo, kLadoLogo);
    cielo.setColorAt(0, QColor(0x1f, 0x7a, 0x8c));
    cielo.setColorAt(1, QColor(0x14, 0x3d, 0x63));
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(cielo);
    pintor.drawRoundedRect(QRectF(0, 0, kLadoLogo, kLadoLogo), 20, 20);
}

/// A sheet with a folded corner and lines of unlike length.
void PintaDeclaracion(QPainter& pintor) {
    QPainterPath hoja;
    hoja.moveTo(24, 14);
    hoja.lineTo(54, 14);
    hoja.lineTo(66, 26);
    hoja.lineTo(66, 80);
    hoja.lineTo(24, 80);
    hoja.closeSubpath();
    pintor.setBrush(QColor(0xf4, 0xf7, 0xf9));
    pintor.drawPath(hoja);
    pintor.setBrush(QColor(0xb9, 0xcb, 0xd6));
    pintor.drawPolygon(QPolygonF({{54, 14}, {66, 26}, {54, 26}}));
    const std::pair<qreal, qreal> renglones[] = {{34, 26}, {43, 26}, {52, 18}, {61, 12}};
    for (const auto& [alto, ancho] : renglones)
        pintor.drawRoundedRect(QRectF(31, alto, ancho, 4), 2, 2);
}

/// A coin with the sign of a part of a hundred.
void PintaMoneda(QPainter& pintor) {
    pintor.setBrush(QColor(0x14, 0x3d, 0x63));
    pintor.drawEllipse(QPointF(64, 66), 22, 22);
    pintor.setBrush(QColor(0xf2, 0xb1, 0x34));
    pintor.drawEllipse(QPointF(64, 66), 18, 18);
    pintor.setPen(QPen(QColor(0x14, 0x3d, 0x63), 4, Qt::SolidLine, Qt::RoundCap));
    pintor.setBrush(Qt::NoBrush);
    pintor.drawLine(QPointF(71, 58), QPointF(57, 74));
    pintor.drawEllipse(QPointF(57.5, 60), 3.4, 3.4);
    pintor.drawEllipse(QPointF(70.5, 72), 3.4, 3.4);
}

} // namespace

Logo::Logo(QWidget* padre) : QWidget(padre) {}

void Logo::Pinta(QPainter& pintor, const QRectF& sitio) {
    const qreal lado = std::min(sitio.width(), sitio.height());
    pintor.save();
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.translate(sitio.center() - QPointF(lado, lado) / 2);
    pintor.scale(lado / kLadoLogo, lado / kLadoLogo);
    PintaFondo(pintor);
    PintaDeclaracion(pintor);
    PintaMoneda(pintor);
    pintor.restore();
}

void Logo::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pintor(this);
    Pinta(pintor, QRectF(rect()));
}

} // namespace xa518
