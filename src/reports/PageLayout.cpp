#include "reports/PageLayout.h"

#include <algorithm>

namespace xa518 {

namespace {

constexpr QSize kHoja{11906, 16838};
constexpr int kTwipsPorPunto = 20;
constexpr int kPasoVertical = 190;
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

void TrazadoPagina::Pinta(const Comando& comando) {
    if (const auto* texto = std::get_if<TextoEnPagina>(&comando))
        Texto(*texto);
    else if (const auto* vertical = std::get_if<TextoVertical>(&comando))
        Vertical(vertical->texto);
    else if (const auto* cuadro = std::get_if<Cuadro>(&comando))
        Lados(*cuadro);
}

/// The place given is the top left corner of the text, the canvas wants that of its base line.
void TrazadoPagina::Texto(const TextoEnPagina& texto) {
    const QStringView visible = SinRelleno(texto.texto);
    if (texto.tamano <= 0 || visible.isEmpty())
        return;
    PonLetra(texto.tamano, texto.negrita);
    const QPointF base(texto.x, texto.y + m_medidas.ascenso);
    const qreal sitio = m_ancho - 2 * kMargen - texto.x;
    if (sitio <= 0 || m_medidas.paso * static_cast<qreal>(visible.size()) <= sitio)
        m_lienzo->Escribe(base, visible, 1);
    else
        Ajustado(base, visible, sitio);
}

/// A text that would run off the sheet, as the long reasons of refused lines do.
void TrazadoPagina::Ajustado(QPointF base, QStringView texto, qreal sitio) {
    const qreal paso = m_medidas.paso;
    qsizetype columnas = FinDeColumnas(texto);
    if (paso * static_cast<qreal>(columnas) >= sitio)
        columnas = 0;
    const qreal anchoColumnas = paso * static_cast<qreal>(columnas);
    const qreal resto = sitio - anchoColumnas;
    const QString palabras = Recortado(texto.sliced(columnas), static_cast<qsizetype>(resto / paso / kEstrechez));
    m_lienzo->Escribe(base, texto.first(columnas), 1);
    m_lienzo->Escribe(base + QPointF(anchoColumnas, 0), palabras, resto / (paso * static_cast<qreal>(palabras.size())));
}

void TrazadoPagina::Vertical(const TextoEnPagina& texto) {
    TextoEnPagina letra = texto;
    for (const QChar c : texto.texto) {
        letra.texto = c;
        Texto(letra);
        letra.y += kPasoVertical;
    }
}

void TrazadoPagina::Lados(const Cuadro& cuadro) {
    m_lienzo->Raya({cuadro.x1, cuadro.y1}, {cuadro.x2, cuadro.y1});
    m_lienzo->Raya({cuadro.x1, cuadro.y2}, {cuadro.x2, cuadro.y2});
    m_lienzo->Raya({cuadro.x1, cuadro.y1}, {cuadro.x1, cuadro.y2});
    m_lienzo->Raya({cuadro.x2, cuadro.y1}, {cuadro.x2, cuadro.y2});
}

void TrazadoPagina::PonLetra(int tamano, bool negrita) {
    const int acotado = std::min(tamano, kTamanoMaximo);
    if (acotado == m_tamano && negrita == m_negrita)
        return;
    m_medidas = m_lienzo->PonLetra(acotado * kTwipsPorPunto, negrita);
    m_tamano = acotado;
    m_negrita = negrita;
}

} // namespace xa518
