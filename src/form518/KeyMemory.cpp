#include "form518/KeyMemory.h"

#include "data/NewRows.h"
#include "values/Error.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>

namespace xa518 {

namespace {

constexpr int kBitsDeBloque = 20;
constexpr size_t kBloque = size_t(1) << kBitsDeBloque;
constexpr size_t kMaximoBloques = size_t(1) << (32 - kBitsDeBloque);
constexpr size_t kPrimerasCasillas = 1024;
constexpr size_t kLargoEnUnByte = 255;
constexpr size_t kCabecera = sizeof(quint32) + sizeof(quint16);

size_t Mezcla(std::string_view clave) {
    return std::hash<std::string_view>()(clave);
}

/// From the upper half, since the lower bits choose the place.
quint8 Marca(size_t mezcla) {
    return static_cast<quint8>(mezcla >> (std::numeric_limits<size_t>::digits - 8));
}

void PasaAMinusculas(std::string& clave, size_t desde) {
    const size_t cero = std::min(clave.find('\0', desde), clave.size());
    for (size_t i = desde; i < cero; ++i) {
        const char c = clave[i];
        clave[i] = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }
    std::fill(clave.begin() + static_cast<std::ptrdiff_t>(cero), clave.end(), '\0');
}

/// One byte nearly always; read from the end, so that no text behind another can look like it.
void AgregaLargo(std::string& clave, size_t largo) {
    if (largo >= kLargoEnUnByte)
        clave.append(reinterpret_cast<const char*>(&largo), sizeof largo);
    clave.push_back(static_cast<char>(std::min(largo, kLargoEnUnByte)));
}

} // namespace

MemoriaDeClaves::MemoriaDeClaves()
    : m_usado(kBloque), m_casillas(kPrimerasCasillas, kNinguno), m_marcas(kPrimerasCasillas) {}

const char* MemoriaDeClaves::En(Lugar lugar) const {
    return m_bloques[lugar >> kBitsDeBloque].get() + (lugar & (kBloque - 1));
}

quint32 MemoriaDeClaves::Numero(Lugar lugar) const {
    quint32 numero = 0;
    std::memcpy(&numero, En(lugar), sizeof numero);
    return numero;
}

void MemoriaDeClaves::PonNumero(Lugar lugar, quint32 numero) {
    std::memcpy(m_bloques[lugar >> kBitsDeBloque].get() + (lugar & (kBloque - 1)), &numero, sizeof numero);
}

std::string_view MemoriaDeClaves::Texto(Lugar lugar) const {
    quint16 largo = 0;
    std::memcpy(&largo, En(lugar) + sizeof(quint32), sizeof largo);
    return {En(lugar) + kCabecera, largo};
}

/// The place of the table that holds the key, or the free one where it belongs.
size_t MemoriaDeClaves::Casilla(std::string_view clave, size_t mezcla) const {
    const size_t mascara = m_casillas.size() - 1;
    size_t casilla = mezcla & mascara;
    while (m_casillas[casilla] != kNinguno &&
           !(m_marcas[casilla] == Marca(mezcla) && Texto(m_casillas[casilla]) == clave))
        casilla = (casilla + 1) & mascara;
    return casilla;
}

MemoriaDeClaves::Lugar MemoriaDeClaves::Busca(std::string_view clave) const {
    return m_casillas[Casilla(clave, Mezcla(clave))];
}

MemoriaDeClaves::Lugar MemoriaDeClaves::Pon(std::string_view clave) {
    const size_t mezcla = Mezcla(clave);
    const size_t casilla = Casilla(clave, mezcla);
    if (m_casillas[casilla] != kNinguno)
        return m_casillas[casilla];
    const Lugar lugar = Guarda(clave);
    m_casillas[casilla] = lugar;
    m_marcas[casilla] = Marca(mezcla);
    if (++m_cuantas * 5 > m_casillas.size() * 4)
        Crece();
    return lugar;
}

MemoriaDeClaves::Lugar MemoriaDeClaves::Guarda(std::string_view clave) {
    const size_t bytes = kCabecera + clave.size();
    if (clave.size() > std::numeric_limits<quint16>::max())
        throw Desbordamiento();
    if (m_usado + bytes > kBloque) {
        if (m_bloques.size() == kMaximoBloques - 1)
            throw Desbordamiento();
        m_bloques.push_back(std::make_unique_for_overwrite<char[]>(kBloque));
        m_usado = 0;
    }
    const auto lugar = static_cast<Lugar>(((m_bloques.size() - 1) << kBitsDeBloque) | m_usado);
    char* destino = m_bloques.back().get() + m_usado;
    const auto largo = static_cast<quint16>(clave.size());
    std::memset(destino, 0, sizeof(quint32));
    std::memcpy(destino + sizeof(quint32), &largo, sizeof largo);
    std::memcpy(destino + kCabecera, clave.data(), clave.size());
    m_usado += bytes;
    return lugar;
}

void MemoriaDeClaves::Crece() {
    std::vector<Lugar> antes(m_casillas.size() * 2, kNinguno);
    antes.swap(m_casillas);
    m_marcas.assign(m_casillas.size(), 0);
    for (const Lugar lugar : antes) {
        if (lugar == kNinguno)
            continue;
        const size_t mezcla = Mezcla(Texto(lugar));
        const size_t casilla = Casilla(Texto(lugar), mezcla);
        m_casillas[casilla] = lugar;
        m_marcas[casilla] = Marca(mezcla);
    }
}

void AgregaAClave(std::string& clave, QStringView texto) {
    const size_t antes = clave.size();
    AgregaUtf8(clave, texto);
    PasaAMinusculas(clave, antes);
    AgregaLargo(clave, clave.size() - antes);
}

} // namespace xa518
