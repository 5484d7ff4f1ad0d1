#include "data/NewRows.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace xa518 {

namespace {

constexpr QChar kMarca(0xFEFF);
constexpr char16_t kUltimoAscii = 0x7F;

/// Before each value stands a byte: what it is, and of a short text its length.
constexpr char kNulo = 0;
constexpr char kEntero = 1;
constexpr char kTextoLargo = 2; ///< its length follows
constexpr int kTextoCorto = 3;
constexpr size_t kMasLargoCorto = 255 - kTextoCorto;

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
    m_bytes.push_back(kEntero);
    AgregaNumero(m_bytes, entero);
    return *this;
}

FilasNuevas& FilasNuevas::Pon(QStringView texto) {
    const size_t marca = m_bytes.size();
    m_bytes.push_back(kTextoLargo);
    AgregaUtf8(m_bytes, texto);
    const size_t largo = m_bytes.size() - marca - 1;
    if (largo <= kMasLargoCorto) {
        m_bytes[marca] = static_cast<char>(kTextoCorto + largo);
    } else {
        const auto bytes = static_cast<quint32>(largo);
        m_bytes.insert(marca + 1, reinterpret_cast<const char*>(&bytes), sizeof bytes);
    }
    return *this;
}

FilasNuevas& FilasNuevas::PonNulo() {
    m_bytes.push_back(kNulo);
    return *this;
}

void FilasNuevas::CierraFila() {
    m_comienzos.push_back(m_enCurso);
    m_enCurso = m_bytes.size();
}

void FilasNuevas::Acorta(size_t cuantas) {
    if (cuantas < m_comienzos.size())
        m_enCurso = m_comienzos[cuantas];
    m_bytes.resize(m_enCurso);
    m_comienzos.resize(std::min(cuantas, m_comienzos.size()));
}

FilasNuevas::Valor FilasNuevas::Lector::Siguiente() {
    const char marca = *m_lugar++;
    if (marca == kNulo)
        return {};
    if (marca == kEntero)
        return {Valor::Clase::Entero, TomaNumero<int>(m_lugar), {}};
    const auto largo = marca == kTextoLargo ? static_cast<qsizetype>(TomaNumero<quint32>(m_lugar))
                                            : static_cast<unsigned char>(marca) - kTextoCorto;
    const QByteArrayView texto(m_lugar, largo);
    m_lugar += largo;
    return {Valor::Clase::Texto, 0, texto};
}

} // namespace xa518
