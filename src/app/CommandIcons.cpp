#include "app/CommandIcons.h"

#include "app/Logo.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace xa518 {

namespace {

// All drawings are made on a square of 24 units.
constexpr qreal kLado = 24;
constexpr qreal kTrazo = 1.8;

// Of middle brightness: they stand out on a light and on a dark ground.
const QColor kVerde(0x2f, 0xa0, 0x58);
const QColor kRojo(0xdb, 0x4a, 0x43);
const QColor kAzul(0x3d, 0x86, 0xd6);
const QColor kAmbar(0xd8, 0x8a, 0x1c);

QPen Lapiz(const QColor& color, qreal grosor = kTrazo) {
    return {color, grosor, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QColor ColorDeTexto() {
    return QGuiApplication::palette().color(QPalette::ButtonText);
}

void PintaHoja(QPainter& pintor) {
    QPainterPath hoja;
    hoja.moveTo(5, 3);
    hoja.lineTo(13, 3);
    hoja.lineTo(17, 7);
    hoja.lineTo(17, 21);
    hoja.lineTo(5, 21);
    hoja.closeSubpath();
    hoja.moveTo(13, 3);
    hoja.lineTo(13, 7);
    hoja.lineTo(17, 7);
    pintor.setPen(Lapiz(ColorDeTexto()));
    pintor.drawPath(hoja);
}

/// A disc in the lower right corner, with a ring around it that keeps it apart from the sheet.
void PintaSello(QPainter& pintor, const QColor& color) {
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(color);
    pintor.drawEllipse(QPointF(17, 17.5), 5.8, 5.8);
    pintor.setBrush(Qt::NoBrush);
    pintor.setPen(Lapiz(Qt::white));
}

void PintaNueva(QPainter& pintor) {
    PintaHoja(pintor);
    PintaSello(pintor, kVerde);
    pintor.drawLine(QPointF(14, 17.5), QPointF(20, 17.5));
    pintor.drawLine(QPointF(17, 14.5), QPointF(17, 20.5));
}

void PintaModificar(QPainter& pintor) {
    PintaHoja(pintor);
    pintor.setPen(Lapiz(kAmbar, 3.2));
    pintor.drawLine(QPointF(12.5, 18), QPointF(20.5, 10));
    pintor.setPen(Lapiz(kAmbar, 1.4));
    pintor.drawLine(QPointF(9.8, 20.6), QPointF(12, 18.4));
}

void PintaEliminar(QPainter& pintor) {
    PintaHoja(pintor);
    PintaSello(pintor, kRojo);
    pintor.drawLine(QPointF(14.8, 15.3), QPointF(19.2, 19.7));
    pintor.drawLine(QPointF(19.2, 15.3), QPointF(14.8, 19.7));
}

void PintaImprimir(QPainter& pintor) {
    pintor.setPen(Lapiz(ColorDeTexto()));
    pintor.drawRoundedRect(QRectF(3, 9, 18, 8), 1.5, 1.5);
    pintor.drawPolyline(QPolygonF({{7, 9}, {7, 3}, {17, 3}, {17, 9}}));
    pintor.setPen(Lapiz(kAzul));
    pintor.drawRect(QRectF(7, 14, 10, 7));
    pintor.drawLine(QPointF(9.5, 17.5), QPointF(14.5, 17.5));
}

void PintaSalir(QPainter& pintor) {
    pintor.setPen(Lapiz(ColorDeTexto()));
    pintor.drawPolyline(QPolygonF({{13, 3}, {4, 3}, {4, 21}, {13, 21}}));
    pintor.setPen(Lapiz(kRojo));
    pintor.drawLine(QPointF(9, 12), QPointF(20.5, 12));
    pintor.drawPolyline(QPolygonF({{16.5, 8}, {20.5, 12}, {16.5, 16}}));
}

void PintaRegistrar(QPainter& pintor) {
    PintaHoja(pintor);
    PintaSello(pintor, kAzul);
    pintor.drawPolyline(QPolygonF({{14.3, 17.7}, {16.3, 19.7}, {19.8, 15.4}}));
}

void PintaAyuda(QPainter& pintor) {
    pintor.setPen(Lapiz(kAzul));
    pintor.drawEllipse(QPointF(12, 12), 9, 9);
    QPainterPath gancho;
    gancho.moveTo(9.2, 9.6);
    gancho.cubicTo(9.2, 6.2, 14.8, 6.2, 14.8, 9.6);
    gancho.cubicTo(14.8, 11.8, 12, 11.8, 12, 14);
    pintor.setPen(Lapiz(ColorDeTexto()));
    pintor.drawPath(gancho);
    pintor.drawPoint(QPointF(12, 17));
}

/// The logo stays the same in any palette: it brings its own ground.
void PintaModulo(QPainter& pintor) {
    Logo::Pinta(pintor, QRectF(0, 0, kLado, kLado));
}

using Pintura = void (*)(QPainter&);

Pintura PinturaDe(Dibujo dibujo) {
    switch (dibujo) {
    case Dibujo::Nueva: return PintaNueva;
    case Dibujo::Modificar: return PintaModificar;
    case Dibujo::Eliminar: return PintaEliminar;
    case Dibujo::Imprimir: return PintaImprimir;
    case Dibujo::Salir: return PintaSalir;
    case Dibujo::Registrar: return PintaRegistrar;
    case Dibujo::Ayuda: break;
    }
    return PintaAyuda;
}

/// Paints at each use, so that another palette shows at once.
class MotorDeDibujo final : public QIconEngine {
  public:
    explicit MotorDeDibujo(Pintura pintura) : m_pintura(pintura) {}

    void paint(QPainter* pintor, const QRect& sitio, QIcon::Mode /*modo*/, QIcon::State /*estado*/) override {
        pintor->save();
        pintor->setRenderHint(QPainter::Antialiasing);
        pintor->translate(sitio.topLeft());
        pintor->scale(sitio.width() / kLado, sitio.height() / kLado);
        m_pintura(*pintor);
        pintor->restore();
    }
    QPixmap pixmap(const QSize& medida, QIcon::Mode modo, QIcon::State estado) override {
        QPixmap imagen(medida);
        imagen.fill(Qt::transparent);
        QPainter pintor(&imagen);
        paint(&pintor, imagen.rect(), modo, estado);
        return imagen;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new MotorDeDibujo(m_pintura); }

  private:
    Pintura m_pintura;
};

} // namespace

QIcon IconoDe(Dibujo dibujo) {
    return QIcon(new MotorDeDibujo(PinturaDe(dibujo)));
}

QIcon IconoDelModulo() {
    QIcon icono; // the window system takes pictures of given sizes
    for (const int lado : {16, 32, 48, 128})
        icono.addPixmap(MotorDeDibujo(PintaModulo).pixmap({lado, lado}, QIcon::Normal, QIcon::Off));
    return icono;
}

} // namespace xa518
