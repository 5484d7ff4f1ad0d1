#include "import/LineReader.h"

#include "values/FileFailure.h"

#include <QIODevice>

#include <cstring>

namespace xa518 {

namespace {

constexpr qsizetype kBuffer = 4 * LectorLineas::kLargoMaximo;
constexpr QByteArrayView kMarcaUtf8("\xEF\xBB\xBF", 3);
constexpr char kFinDeArchivo = '\x1A'; ///< Ctrl-Z, which programs of the DOS days write behind the last line

} // namespace

LectorLineas::LectorLineas(QIODevice& archivo) : m_archivo(archivo), m_buffer(kBuffer, Qt::Uninitialized) {
    VuelveA(0);
    Rellena();
    SaltaMarca();
}

void LectorLineas::VuelveA(qint64 bytesLeidos) {
    if (!m_archivo.seek(bytesLeidos))
        throw FallaDeArchivo(Intento::Leer, m_archivo);
    m_desde = 0;
    m_hasta = 0;
    m_leidos = bytesLeidos;
    m_agotado = false;
}

void LectorLineas::SaltaMarca() {
    if (QByteArrayView(m_buffer).first(m_hasta).startsWith(kMarcaUtf8))
        m_desde = kMarcaUtf8.size();
}

LectorLineas::Lectura LectorLineas::Siguiente() {
    qsizetype vistos = 0; // bytes from `m_desde` on that are known to hold no end of line
    for (;;) {
        const QByteArrayView resto(m_buffer.constData() + m_desde, m_hasta - m_desde);
        const qsizetype salto = resto.indexOf('\n', vistos);
        if (salto >= 0)
            return Entrega(resto.first(salto), salto + 1);
        if (m_agotado)
            return EntregaResto(resto);
        if (resto.size() > kLargoMaximo + 1) // one more for the CR of a CRLF that is still to come
            return Lectura::DemasiadoLarga;
        vistos = resto.size();
        Rellena();
    }
}

LectorLineas::Lectura LectorLineas::EntregaResto(QByteArrayView resto) {
    const qsizetype largo = resto.size();
    while (resto.endsWith(kFinDeArchivo))
        resto.chop(1);
    if (!resto.isEmpty())
        return Entrega(resto, largo);
    m_desde += largo;
    return Lectura::Fin;
}

LectorLineas::Lectura LectorLineas::Entrega(QByteArrayView linea, qsizetype leidos) {
    m_linea = linea;
    if (m_linea.endsWith('\r'))
        m_linea.chop(1);
    m_desde += leidos;
    return m_linea.size() > kLargoMaximo ? Lectura::DemasiadoLarga : Lectura::Linea;
}

void LectorLineas::Rellena() {
    std::memmove(m_buffer.data(), m_buffer.constData() + m_desde, static_cast<size_t>(m_hasta - m_desde));
    m_hasta -= m_desde;
    m_desde = 0;
    const qint64 leidos = m_archivo.read(m_buffer.data() + m_hasta, kBuffer - m_hasta);
    if (leidos < 0)
        throw FallaDeArchivo(Intento::Leer, m_archivo);
    m_agotado = leidos == 0;
    m_hasta += leidos;
    m_leidos += leidos;
}

} // namespace xa518
