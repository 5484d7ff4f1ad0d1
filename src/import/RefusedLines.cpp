#include "import/RefusedLines.h"

#include <algorithm>

namespace xa518 {

namespace {

constexpr qsizetype kTrozo = 1 << 20;
/// Nobody puts so much right by hand, and the disk for temporary files is often a small one.
constexpr qint64 kBytesMaximos = qint64{1} << 30;

} // namespace

LineasRechazadas::LineasRechazadas() = default;

void LineasRechazadas::Recibe(const LineaRefutada& linea) {
    m_codificacion = linea.codificacion;
    if (!m_completas || (!m_lineas.empty() && m_lineas.back().numero == linea.numero))
        return;
    m_lineas.push_back(
        {linea.numero, m_bytes, static_cast<qint32>(linea.bytes.size()), m_fallas.NumeroDe(linea.falla)});
    m_bytes += linea.bytes.size();
    m_pendientes.append(linea.bytes);
    m_completas = m_bytes <= kBytesMaximos;
    if (m_pendientes.size() >= kTrozo)
        Vuelca();
}

void LineasRechazadas::Vuelca() {
    if (!m_archivo.isOpen() && !m_archivo.open())
        m_completas = false;
    m_completas = m_completas && m_archivo.write(m_pendientes) == m_pendientes.size();
    m_pendientes.clear();
}

/// Lines that the tables refused at the end of their batch came behind others.
void LineasRechazadas::Cierra() {
    std::stable_sort(m_lineas.begin(), m_lineas.end(),
                     [](const Lugar& uno, const Lugar& otro) { return uno.numero < otro.numero; });
    const auto repetidas = std::unique(m_lineas.begin(), m_lineas.end(),
                                       [](const Lugar& uno, const Lugar& otro) { return uno.numero == otro.numero; });
    m_lineas.erase(repetidas, m_lineas.end());
    m_lineas.shrink_to_fit();
    if (m_bytes > 0) {
        Vuelca();
        m_completas = m_completas && m_archivo.flush();
        m_mapa = reinterpret_cast<const char*>(m_completas ? m_archivo.map(0, m_bytes) : nullptr);
        m_completas = m_mapa != nullptr;
    }
    m_pendientes.squeeze();
}

QByteArrayView LineasRechazadas::Bytes(int cual) const {
    return {m_mapa + De(cual).desde, De(cual).largo};
}

} // namespace xa518
