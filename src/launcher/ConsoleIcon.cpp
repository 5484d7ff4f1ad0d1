#include "launcher/ConsoleIcon.h"

#include <QPainter>

namespace xa518 {

namespace {

constexpr qreal kLado = 96;
const QColor kPapel(0xf4, 0xf7, 0xf9);
const QColor kTinta(0x3a, 0x1f, 0x5c);

void PintaFondo(QPainter& pintor) {
    QLinearGradient cielo(0, 0, kLado, kLado);
    cielo.setColorAt(0, QColor(0x7a, 0x4d, 0xa8));
    cielo.setColorAt(1, kTinta);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(cielo);
    pintor.drawRoundedRect(QRectF(0, 0, kLado, kLado), 20, 20);
}

/// A tray, and an arrow that leaves it: what is kept here goes out from here.
void PintaBandeja(QPainter& pintor) {
    pintor.setBrush(kPapel);
    pintor.drawPolygon(QPolygonF({{16, 56}, {32, 56}, {38, 66}, {58, 66}, {64, 56}, {80, 56}, {80, 82}, {16, 82}}));
    pintor.setBrush(QColor(0xf2, 0xb1, 0x34));
    pintor.drawPolygon(QPolygonF({{48, 12}, {68, 34}, {55, 34}, {55, 56}, {41, 56}, {41, 34}, {28, 34}}));
}

QPixmap Imagen(int lado) {
    QPixmap imagen(lado, lado);
    imagen.fill(Qt::transparent);
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.scale(lado / kLado, lado / kLado);
    PintaFondo(pintor);
    PintaBandeja(pintor);
    return imagen;
}

} // namespace

QIcon IconoDeLaConsola() {
    QIcon icono; // the window system takes pictures of given sizes
    for (const int lado : {16, 32, 48, 128})
        icono.addPixmap(Imagen(lado));
    return icono;
}

} // namespace xa518
