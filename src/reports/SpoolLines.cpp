#include "reports/SpoolLines.h"

#include <QIODevice>

#include <algorithm>
#include <limits>

namespace xa518 {

namespace {

constexpr qsizetype kTrozo = 65'536;

} // namespace

LineasTolerantes::LineasTolerantes(QIODevice& entrada, qint64 desde, qint64 hasta)
    : m_entrada(&entrada), m_hasta(hasta < 0 ? std::numeric_limits<qint64>::max() : hasta), m_fin(desde) {
    if (!m_entrada->seek(desde))
        m_hasta = 0;
}

bool LineasTolerantes::Siguiente() {
    if (m_fin >= m_hasta)
        return false;
    bool sobra = false; // the line has grown past the limit and its beginning is gone
    qsizetype salto = m_bloque.indexOf('\n', m_usado);
    m_inicio = m_fin;
    while (salto < 0) {
        if (m_bloque.size() - m_usado > kLineaMaxima) {
            sobra = true;
            m_fin += m_bloque.size() - m_usado;
            m_usado = m_bloque.size();
        }
        const qsizetype mirado = m_bloque.size() - m_usado;
        if (!Llena())
            break;
        salto = m_bloque.indexOf('\n', mirado);
    }
    const bool alFinal = salto < 0;
    if (alFinal && m_usado == m_bloque.size() && !sobra)
        return false;
    Pasa((alFinal ? m_bloque.size() : salto) - m_usado, alFinal ? 0 : 1);
    if (sobra || m_linea.size() > kLineaMaxima)
        m_linea = {};
    return true;
}

/// Drops what was handed out and reads a further piece behind what is left.
bool LineasTolerantes::Llena() {
    m_bloque.remove(0, m_usado);
    m_usado = 0;
    const qsizetype habia = m_bloque.size();
    m_bloque.resize(habia + kTrozo);
    const qint64 leidos = m_entrada->read(m_bloque.data() + habia, kTrozo);
    m_bloque.resize(habia + std::max<qint64>(leidos, 0));
    return leidos > 0;
}

void LineasTolerantes::Pasa(qsizetype largo, qsizetype terminador) {
    m_linea = QByteArrayView(m_bloque).sliced(m_usado, largo);
    if (m_linea.endsWith('\r'))
        m_linea.chop(1);
    m_usado += largo + terminador;
    m_fin += largo + terminador;
}

} // namespace xa518
