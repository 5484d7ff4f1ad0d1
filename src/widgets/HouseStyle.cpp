#include "widgets/HouseStyle.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QStyleOption>

#include <functional>
#include <utility>

namespace xa518 {

namespace {

/// An icon that is made when it is first looked at.
class IconoTardio final : public QIconEngine {
  public:
    explicit IconoTardio(std::function<QIcon()> hechura) : m_hechura(std::move(hechura)) {}

    void paint(QPainter* pintor, const QRect& sitio, QIcon::Mode modo, QIcon::State estado) override {
        Icono().paint(pintor, sitio, Qt::AlignCenter, modo, estado);
    }
    QPixmap pixmap(const QSize& medida, QIcon::Mode modo, QIcon::State estado) override {
        return Icono().pixmap(medida, modo, estado);
    }
    QSize actualSize(const QSize& medida, QIcon::Mode modo, QIcon::State estado) override {
        return Icono().actualSize(medida, modo, estado);
    }
    QList<QSize> availableSizes(QIcon::Mode modo, QIcon::State estado) override {
        return Icono().availableSizes(modo, estado);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new IconoTardio(*this); } // its icon owns it

  private:
    const QIcon& Icono() {
        if (const auto hechura = std::exchange(m_hechura, nullptr))
            m_icono = hechura();
        return m_icono;
    }

    std::function<QIcon()> m_hechura; ///< until it has been made
    QIcon m_icono;
};

} // namespace

QIcon EstiloDeLaCasa::standardIcon(StandardPixmap dibujo, const QStyleOption* opcion, const QWidget* control) const {
    if (dibujo != SP_ToolBarHorizontalExtensionButton)
        return QProxyStyle::standardIcon(dibujo, opcion, control);
    const Qt::LayoutDirection sentido = opcion ? opcion->direction : QGuiApplication::layoutDirection();
    const auto hechura = [estilo = QPointer(baseStyle()), dibujo, sentido] {
        QStyleOption lado;
        lado.direction = sentido;
        return estilo ? estilo->standardIcon(dibujo, &lado) : QIcon();
    };
    return QIcon(new IconoTardio(hechura)); // the icon owns it
}

void EstiloDeLaCasa::polish(QPalette& paleta) {
    QProxyStyle::polish(paleta);
    for (const QPalette::ColorRole papel : {QPalette::Highlight, QPalette::HighlightedText})
        paleta.setBrush(QPalette::Inactive, papel, paleta.brush(QPalette::Active, papel));
}

} // namespace xa518
