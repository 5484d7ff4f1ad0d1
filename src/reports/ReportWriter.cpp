#include "reports/ReportWriter.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargenLinea = 10;
constexpr int kAltoLinea = 175;

struct Limite {
    int anchoHasta;
    int lineas;
};

/// Lines that a page takes: at 175 twips each they just fill an upright page, or a lying one for the wide reports.
constexpr Limite kLimites[] = {{82, 85}, {149, 83}};
constexpr int kLineasApaisado = 64;

} // namespace

void EscritorInforme::ImprimeLinea(const QString& texto) {
    m_posY += kAltoLinea;
    if (texto.isEmpty())
        m_destino->Recibe(LineaVacia());
    else
        m_destino->Recibe(TextoEnPagina{kMargenLinea, m_posY, texto, false, kTamanoLinea, m_paginaActual - 1});
    CuentaLinea();
}

void EscritorInforme::ImprimeEtiqueta(const Etiqueta& etiqueta) {
    if (m_paginaActual == 1)
        m_destino->Recibe(etiqueta);
    CuentaLinea();
}

void EscritorInforme::CuentaLinea() {
    ++m_filaActual;
    if (m_filaActual < LimitePagina())
        return;
    NuevaPagina();
    if (m_cabecera)
        m_cabecera();
}

void EscritorInforme::ImprimePos(int x, int y, const QString& texto, int tamano, bool negrita) {
    m_destino->Recibe(TextoEnPagina{x, y, texto, negrita, tamano, m_paginaActual - 1});
}

void EscritorInforme::ImprimeCuadro(int x1, int y1, int x2, int y2) {
    m_destino->Recibe(Cuadro{x1, y1, x2, y2, m_paginaActual - 1});
}

void EscritorInforme::NuevaPagina() {
    m_filaActual = 0;
    m_posY = 0;
    ++m_paginaActual;
    m_destino->Recibe(NuevaHoja());
    if (m_avance)
        m_avance(m_paginaActual - 1);
}

int EscritorInforme::LimitePagina() const {
    for (const Limite& limite : kLimites) {
        if (m_ancho <= limite.anchoHasta)
            return limite.lineas;
    }
    return kLineasApaisado;
}

LineaCompuesta& LineaCompuesta::Pon(int columna, const QString& texto) {
    const qsizetype inicio = std::max(columna - 1, 0);
    m_texto = m_texto.leftJustified(inicio + texto.size(), u' ');
    m_texto.replace(inicio, texto.size(), texto);
    return *this;
}

LineaCompuesta& LineaCompuesta::PonHasta(int columna, const QString& texto) {
    return Pon(columna - static_cast<int>(texto.size()) + 1, texto);
}

LineaCompuesta& LineaCompuesta::PonCentrado(const QString& texto, int ancho) {
    return Pon(1 + std::max(0, (ancho - static_cast<int>(texto.size())) / 2), texto);
}

} // namespace xa518
