#include "reports/PagePainter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>

#include <mutex>

namespace xa518 {

using namespace Qt::StringLiterals;

QColor ColorDe(const ColorPagina& color, const QColor& ventana) {
    return color.delSistema ? ventana : QColor(color.rojo, color.verde, color.azul);
}

void TraeLetrasDelPrograma() {
    static std::once_flag traidas; // the toolkit keeps them for the whole process
    std::call_once(traidas, [] {
        const QDir carpeta(QCoreApplication::applicationDirPath() + u"/fonts"_s);
        for (const QFileInfo& letra : carpeta.entryInfoList({u"*.ttf"_s}, QDir::Files))
            QFontDatabase::addApplicationFont(letra.filePath());
    });
}

QFont FuenteInforme() {
    TraeLetrasDelPrograma();
    QFont fuente;
    fuente.setFamilies({u"Courier New"_s, u"Liberation Mono"_s, u"Cousine"_s, u"Nimbus Mono PS"_s});
    fuente.setStyleHint(QFont::TypeWriter);
    fuente.setFixedPitch(true);
    fuente.setHintingPreference(QFont::PreferNoHinting); // widths must not depend on the zoom
    fuente.setKerning(false);
    return fuente;
}

QFont FuenteInforme(int alto, bool negrita) {
    QFont fuente = FuenteInforme();
    fuente.setPixelSize(alto); // who draws with it counts in twips
    fuente.setBold(negrita);
    return fuente;
}

MedidasLetra MedidasDe(const QFont& fuente) {
    const QFontMetricsF medidas(fuente);
    return {medidas.ascent(), medidas.horizontalAdvance(u'0')};
}

PintorPagina::PintorPagina(QPainter& pintor, qreal escala, int ancho) : m_pintor(&pintor), m_trazado(*this, ancho) {
    pintor.setRenderHint(QPainter::TextAntialiasing);
    pintor.setRenderHint(QPainter::Antialiasing, false);
    pintor.scale(escala, escala);
    pintor.translate(TrazadoPagina::kMargen, TrazadoPagina::kMargen);
    QPen pluma(Qt::black, TrazadoPagina::kGrosor, Qt::SolidLine, Qt::SquareCap);
    if (TrazadoPagina::kGrosor * escala < 1) // thinner than a dot of the device: one dot, whatever the zoom
        pluma.setWidth(0);
    pintor.setPen(pluma);
}

MedidasLetra PintorPagina::PonLetra(int alto, bool negrita) {
    const QFont fuente = FuenteInforme(alto, negrita);
    m_pintor->setFont(fuente);
    return MedidasDe(fuente);
}

void PintorPagina::Escribe(QPointF base, QStringView texto, qreal anchura) {
    if (anchura == 1) {
        m_pintor->drawText(base, texto.toString());
        return;
    }
    m_pintor->save();
    m_pintor->translate(base);
    m_pintor->scale(anchura, 1);
    m_pintor->drawText(QPointF(), texto.toString());
    m_pintor->restore();
}

void PintorPagina::Raya(QPoint desde, QPoint hasta) {
    m_pintor->drawLine(desde, hasta);
}

void PintaPagina(QPainter& pintor, InformeSpool& informe, int pagina, qreal ancho) {
    const QSize hoja = TamanoHoja(informe.Cabecera().apaisado);
    pintor.save();
    PintorPagina paginas(pintor, ancho / hoja.width(), hoja.width());
    informe.RecorrePagina(pagina, [&](const Comando& comando) { paginas.Pinta(comando); });
    pintor.restore();
}

} // namespace xa518
