#include "reports/PdfContent.h"

#include "reports/PagePainter.h"

#include <array>
#include <charconv>
#include <cmath>

namespace xa518 {

namespace {

constexpr qint64 kCentesimas = 100;

void AgregaEntero(QByteArray& salida, qint64 numero) {
    std::array<char, 24> cifras{};
    const char* const fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), numero).ptr;
    salida.append(cifras.data(), fin - cifras.data());
}

/// A number in hundredths, and a blank.
void AgregaCentesimas(QByteArray& salida, qint64 centesimas) {
    const qint64 resto = std::abs(centesimas % kCentesimas);
    if (centesimas < 0 && centesimas > -kCentesimas)
        salida += '-';
    AgregaEntero(salida, centesimas / kCentesimas);
    if (resto != 0) {
        salida += resto < 10 ? ".0" : ".";
        AgregaEntero(salida, resto);
    }
    salida += ' ';
}

qint64 Centesimas(qreal medida) {
    return std::llround(medida * kCentesimas);
}

} // namespace

QSize TamanoPdf(bool apaisado) {
    constexpr QSize kParada{595, 842};
    return apaisado ? kParada.transposed() : kParada;
}

/// From here on a unit is a twip, and places count from where reports begin; PDF counts upward.
ContenidoPdf::ContenidoPdf(LetrasPdf& letras, bool apaisado)
    : m_letras(&letras), m_letra(&letras.normal), m_apaisado(apaisado), m_trazado(*this, TamanoHoja(apaisado).width()) {
    constexpr int kTwipsDeUnPunto = 20;
    constexpr int kMargen = TrazadoPagina::kMargen / kTwipsDeUnPunto;
    m_operadores = "/A gs .05 0 0 .05 " + QByteArray::number(kMargen) + ' ' +
                   QByteArray::number(TamanoPdf(apaisado).height() - kMargen) + " cm " +
                   QByteArray::number(TrazadoPagina::kGrosor) + " w 2 J\n";
}

QByteArray ContenidoPdf::Cierra() {
    Termina();
    return std::move(m_operadores);
}

/// A letter may change within a run of texts, not of lines.
MedidasLetra ContenidoPdf::PonLetra(int alto, bool negrita) {
    Empieza(Tramo::Textos);
    m_letra = negrita ? &m_letras->negrita : &m_letras->normal;
    m_operadores += negrita ? "/B " : "/N ";
    AgregaEntero(m_operadores, alto);
    m_operadores += " Tf\n";
    return MedidasDe(FuenteInforme(alto, negrita));
}

void ContenidoPdf::Escribe(QPointF base, QStringView texto, qreal anchura) {
    Empieza(Tramo::Textos);
    PonAnchura(anchura);
    const qint64 x = Centesimas(base.x());
    const qint64 y = -Centesimas(base.y());
    AgregaCentesimas(m_operadores, x - m_x);
    AgregaCentesimas(m_operadores, y - m_y);
    m_operadores += "Td";
    m_letra->AgregaCadena(m_operadores, texto);
    m_operadores += "Tj\n";
    m_x = x;
    m_y = y;
}

/// In hundredths, as places are.
void ContenidoPdf::PonAnchura(qreal anchura) {
    if (anchura == m_anchura)
        return;
    AgregaCentesimas(m_operadores, Centesimas(anchura * 100));
    m_operadores += "Tz ";
    m_anchura = anchura;
}

void ContenidoPdf::Empieza(Tramo tramo) {
    if (m_tramo == tramo)
        return;
    Termina();
    m_tramo = tramo;
    m_x = 0; // the first text of a run counts from the origin, each further one from the one before
    m_y = 0;
    if (tramo == Tramo::Textos)
        m_operadores += "BT ";
}

void ContenidoPdf::Termina() {
    if (m_tramo == Tramo::Textos)
        m_operadores += "ET\n";
    else if (m_tramo == Tramo::Rayas)
        m_operadores += "S\n";
    m_tramo = Tramo::Ninguno;
}

void ContenidoPdf::Raya(QPoint desde, QPoint hasta) {
    Empieza(Tramo::Rayas);
    AgregaPunto(desde, "m ");
    AgregaPunto(hasta, "l\n");
}

void ContenidoPdf::AgregaPunto(QPoint punto, const char* operador) {
    for (const int numero : {punto.x(), -punto.y()}) {
        AgregaEntero(m_operadores, numero);
        m_operadores += ' ';
    }
    m_operadores += operador;
}

} // namespace xa518
