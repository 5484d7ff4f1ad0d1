#include "reports/PreviewIcons.h"

#include <QIcon>
#include <QPainter>
#include <QToolButton>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

// All drawings are made on a square of 24 units.
constexpr int kLado = 24;
constexpr int kAmpliado = 4; ///< dots to a unit, enough for any scale of the desktop

using Trazo = QList<QPointF>;

/// Lines through their points.
struct Dibujo {
    QString boton;
    QList<Trazo> trazos;
};

const QList<Dibujo>& Dibujos() {
    static const Trazo hoja = {{6, 3}, {14, 3}, {18, 7}, {18, 21}, {6, 21}, {6, 3}};
    static const Trazo lupa = {{15, 10}, {13.5, 13.5}, {10, 15}, {6.5, 13.5},  {5, 10}, {6.5, 6.5},
                               {10, 5},  {13.5, 6.5},  {15, 10}, {13.5, 13.5}, {20, 20}};
    static const QList<Dibujo> dibujos = {
        {u"tlbPrevia_2"_s, {{{15, 5}, {8, 12}, {15, 19}}}},
        {u"tlbPrevia_3"_s, {{{9, 5}, {16, 12}, {9, 19}}}},
        {u"tlbPrevia_4"_s,
         {{{7, 9}, {7, 3}, {17, 3}, {17, 9}},
          {{7, 17}, {4, 17}, {4, 9}, {20, 9}, {20, 17}, {17, 17}},
          {{7, 14}, {17, 14}, {17, 21}, {7, 21}, {7, 14}}}},
        {u"tlbPrevia_5"_s, {{{6, 6}, {18, 18}}, {{18, 6}, {6, 18}}}},
        {u"CmdPdf"_s, {hoja, {{12, 9}, {12, 17}}, {{9, 14}, {12, 17}, {15, 14}}}},
        {u"CmdAlejar"_s, {lupa, {{8, 10}, {12, 10}}}},
        {u"CmdAcercar"_s, {lupa, {{8, 10}, {12, 10}}, {{10, 8}, {10, 12}}}},
    };
    return dibujos;
}

QPixmap Figura(const Dibujo& dibujo, const QColor& color) {
    constexpr qreal kGrosor = 1.8;
    QPixmap figura(kLado * kAmpliado, kLado * kAmpliado);
    figura.fill(Qt::transparent);
    QPainter pintor(&figura);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.scale(kAmpliado, kAmpliado);
    pintor.setPen(QPen(color, kGrosor, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const Trazo& trazo : dibujo.trazos)
        pintor.drawPolyline(trazo.constData(), static_cast<int>(trazo.size()));
    return figura;
}

} // namespace

void PonIconos(QWidget& vista) {
    for (const Dibujo& dibujo : Dibujos()) {
        auto* boton = vista.findChild<QToolButton*>(dibujo.boton);
        if (boton == nullptr)
            continue;
        QIcon icono(Figura(dibujo, vista.palette().color(QPalette::Active, QPalette::ButtonText)));
        icono.addPixmap(Figura(dibujo, vista.palette().color(QPalette::Disabled, QPalette::ButtonText)),
                        QIcon::Disabled);
        boton->setIcon(icono);
    }
}

} // namespace xa518
