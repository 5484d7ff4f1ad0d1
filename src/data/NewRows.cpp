#include "data/NewRows.h"

#include <cstring>
#include <utility>

namespace xa518 {

namespace {

constexpr QChar kMarca(0xFEFF);
constexpr char16_t kUltimoAscii = 0x7F;

template <typename Numero>
void AgregaNumero(std::string& bytes, Numero numero) {
    bytes.append(reinterpret_cast<const char*>(&numero), sizeof numero);
}

template <typename Numero>
Numero TomaNumero(const char*& lugar) {
    Numero numero;
    std::memcpy(&numero, lugar, sizeof numero);
    lugar += sizeof numero;
    return numero;
}

} // namespace

void AgregaUtf8(std::string& destino, QStringView texto) {
    if (texto.startsWith(kMarca))
        texto = texto.sliced(1);
    const size_t antes = destino.size();
    destino.resize(antes + static_cast<size_t>(texto.size()));
    char16_t todos = 0;
    char* lugar = destino.data() + antes;
    for (const QChar c : texto) {
        todos |= c.unicode();
        *lugar++ = static_cast<char>(c.unicode());
    }
    if (todos <= kUltimoAscii)
        return;
    destino.resize(antes);
    const QByteArray bytes = texto.toUtf8();
    destino.append(bytes.constData(), static_cast<size_t>(bytes.size()));
}

FilasNuevas::FilasNuevas(const Tabla& tabla, QStringList columnas)
    : m_tabla(tabla.nombre), m_columnas(std::move(columnas)) {}

FilasNuevas& FilasNuevas::Pon(int entero) {
    m_bytes.push_back(static_cast<char>(Valor::Clase::Entero));
    AgregaNumero(m_bytes, qint64(entero));
    return *this;
}

FilasNuevas& FilasNuevas::Pon(QStringView texto) {
    m_bytes.push_back(static_cast<char>(Valor::Clase::Texto));
    const size_t largo = m_bytes.size();
    AgregaNumero(m_bytes, quint32(0));
    AgregaUtf8(m_bytes, texto);
    const auto bytes = static_cast<quint32>(m_bytes.size() - largo - sizeof(quint32));
    std::memcpy(m_bytes.data() + largo, &bytes, sizeof bytes);
    return *this;
}

FilasNuevas& FilasNuevas::PonNulo() {
    m_bytes.push_back(static_cast<char>(Valor::Clase::Nulo));
    return *this;
}

void FilasNuevas::CierraFila() {
    m_comienzos.push_back(m_enCurso);
    m_enCurso = m_bytes.size();
}

void FilasNuevas::Vacia() {
    m_bytes.clear();
    m_comienzos.clear();
    m_enCurso = 0;
}

FilasNuevas::Valor FilasNuevas::Lector::Siguiente() {
    const auto clase = static_cast<Valor::Clase>(*m_lugar++);
    if (clase == Valor::Clase::Entero)
        return {clase, TomaNumero<qint64>(m_lugar), {}};
    if (clase == Valor::Clase::Nulo)
        return {};
    const auto largo = static_cast<qsizetype>(TomaNumero<quint32>(m_lugar));
    const QByteArrayView texto(m_lugar, largo);
    m_lugar += largo;
    return {clase, 0, texto};
}

} // namespace xa518
