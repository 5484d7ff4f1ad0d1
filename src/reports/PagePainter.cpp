#include "reports/PagePainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kHoja{11906, 16838};
constexpr int kTwipsPorPunto = 20;
constexpr int kPasoVertical = 190;

/// Reports begin at the very edge, where no printer prints: a quarter of an inch keeps them on the paper, and nearly in
/// its middle.
constexpr int kMargen = 360;

constexpr qreal kGrosor = 8;
constexpr int kTamanoMaximo = 200; ///< of a font, in points: what a damaged file asks beyond it isn't worth the memory

/// Of a line that is too long for the sheet: up to here stand its columns, which keep their places under those of the
/// other lines. The words behind them are drawn narrower.
constexpr qsizetype kColumnas = 48;

constexpr qreal kEstrechez = 0.5; ///< narrower than this nobody reads: what is left then is cut

/// Without the blanks behind, which lines are filled up with.
QStringView SinRelleno(QStringView texto) {
    while (texto.endsWith(u' '))
        texto.chop(1);
    return texto;
}

/// Where the first word behind the columns begins; 0 for a text that has none there.
qsizetype FinDeColumnas(QStringView texto) {
    const qsizetype blanco = texto.indexOf(u' ', kColumnas);
    const auto* palabra =
        std::find_if(texto.begin() + std::max<qsizetype>(blanco, 0), texto.end(), [](QChar c) { return c != u' '; });
    return blanco < 0 ? 0 : palabra - texto.begin();
}

QString Recortado(QStringView texto, qsizetype lugares) {
    return texto.size() <= lugares ? texto.toString()
                                   : texto.first(std::max<qsizetype>(lugares - 1, 0)).toString() + u'…';
}

} // namespace

QSize TamanoHoja(bool apaisado) {
    return apaisado ? kHoja.transposed() : kHoja;
}

QColor ColorDe(const ColorPagina& color, const QColor& ventana) {
    return color.delSistema ? ventana : QColor(color.rojo, color.verde, color.azul);
}

QFont FuenteInforme() {
    QFont fuente;
    fuente.setFamilies({u"Courier New"_s, u"Liberation Mono"_s, u"Cousine"_s, u"Nimbus Mono PS"_s});
    fuente.setStyleHint(QFont::TypeWriter);
    fuente.setFixedPitch(true);
    fuente.setHintingPreference(QFont::PreferNoHinting); // widths must not depend on the zoom
    fuente.setKerning(false);
    return fuente;
}

PintorPagina::PintorPagina(QPainter& pintor, qreal escala, int ancho) : m_pintor(&pintor), m_ancho(ancho) {
    pintor.setRenderHint(QPainter::TextAntialiasing);
    pintor.setRenderHint(QPainter::Antialiasing, false);
    pintor.scale(escala, escala);
    pintor.translate(kMargen, kMargen);
    QPen pluma(Qt::black, kGrosor, Qt::SolidLine, Qt::SquareCap);
    if (kGrosor * escala < 1) // thinner than a dot of the device: one dot, whatever the zoom
        pluma.setWidth(0);
    pintor.setPen(pluma);
}

void PintorPagina::Pinta(const Comando& comando) {
    if (const auto* texto = std::get_if<TextoEnPagina>(&comando))
        Texto(*texto);
    else if (const auto* vertical = std::get_if<TextoVertical>(&comando))
        Vertical(vertical->texto);
    else if (const auto* cuadro = std::get_if<Cuadro>(&comando))
        Cuadros(*cuadro);
}

/// The place given is the top left corner of the text, the painter's that of its base line.
void PintorPagina::Texto(const TextoEnPagina& texto) {
    if (texto.tamano <= 0 || texto.texto.isEmpty())
        return;
    PonFuente(texto.tamano, texto.negrita);
    const QPointF base(texto.x, texto.y + m_ascenso);
    const qreal sitio = m_ancho - 2 * kMargen - texto.x;
    const QStringView visible = SinRelleno(texto.texto);
    if (sitio <= 0 || m_paso * static_cast<qreal>(visible.size()) <= sitio)
        m_pintor->drawText(base, texto.texto);
    else
        Ajustado(base, visible, sitio);
}

/// A text that would run off the sheet, as the long reasons of refused lines do.
void PintorPagina::Ajustado(QPointF base, QStringView texto, qreal sitio) {
    qsizetype columnas = FinDeColumnas(texto);
    if (m_paso * static_cast<qreal>(columnas) >= sitio)
        columnas = 0;
    const qreal anchoColumnas = m_paso * static_cast<qreal>(columnas);
    const qreal resto = sitio - anchoColumnas;
    const QString palabras = Recortado(texto.sliced(columnas), static_cast<qsizetype>(resto / m_paso / kEstrechez));
    m_pintor->drawText(base, texto.first(columnas).toString());
    m_pintor->save();
    m_pintor->translate(base.x() + anchoColumnas, base.y());
    m_pintor->scale(resto / (m_paso * static_cast<qreal>(palabras.size())), 1);
    m_pintor->drawText(QPointF(), palabras);
    m_pintor->restore();
}

void PintorPagina::Vertical(const TextoEnPagina& texto) {
    TextoEnPagina letra = texto;
    for (const QChar c : texto.texto) {
        letra.texto = c;
        Texto(letra);
        letra.y += kPasoVertical;
    }
}

void PintorPagina::Cuadros(const Cuadro& cuadro) {
    m_pintor->drawLine(cuadro.x1, cuadro.y1, cuadro.x2, cuadro.y1);
    m_pintor->drawLine(cuadro.x1, cuadro.y2, cuadro.x2, cuadro.y2);
    m_pintor->drawLine(cuadro.x1, cuadro.y1, cuadro.x1, cuadro.y2);
    m_pintor->drawLine(cuadro.x2, cuadro.y1, cuadro.x2, cuadro.y2);
}

void PintorPagina::PonFuente(int tamano, bool negrita) {
    const int acotado = std::min(tamano, kTamanoMaximo);
    if (acotado == m_tamano && negrita == m_negrita)
        return;
    QFont fuente = FuenteInforme();
    fuente.setPixelSize(acotado * kTwipsPorPunto); // the painter counts in twips
    fuente.setBold(negrita);
    m_pintor->setFont(fuente);
    const QFontMetricsF medidas(fuente);
    m_ascenso = medidas.ascent();
    m_paso = medidas.horizontalAdvance(u'0');
    m_tamano = acotado;
    m_negrita = negrita;
}

void PintaPagina(QPainter& pintor, InformeSpool& informe, int pagina, qreal ancho) {
    const QSize hoja = TamanoHoja(informe.Cabecera().apaisado);
    pintor.save();
    PintorPagina paginas(pintor, ancho / hoja.width(), hoja.width());
    informe.RecorrePagina(pagina, [&](const Comando& comando) { paginas.Pinta(comando); });
    pintor.restore();
}

} // namespace xa518
