#pragma once

#include <QStringView>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace xa518 {

/// A set of keys that takes little more memory than their bytes, for millions of them: the whole of a table that an
/// import compares with. Every key has a place that stays, and keeps a number beside it.
class MemoriaDeClaves {
  public:
    using Lugar = quint32;
    static constexpr Lugar kNinguno = 0xFFFFFFFF;

    MemoriaDeClaves();

    /// Where the key is; `kNinguno` when it isn't there.
    [[nodiscard]] Lugar Busca(std::string_view clave) const;
    /// The same, but a key that isn't there is added, its number 0. Raises `Desbordamiento` past 4 GB.
    Lugar Pon(std::string_view clave);

    [[nodiscard]] quint32 Numero(Lugar lugar) const;
    void PonNumero(Lugar lugar, quint32 numero);
    [[nodiscard]] std::string_view Texto(Lugar lugar) const;

  private:
    [[nodiscard]] size_t Casilla(std::string_view clave, size_t mezcla) const;
    [[nodiscard]] const char* En(Lugar lugar) const;
    Lugar Guarda(std::string_view clave);
    void Crece();

    std::vector<std::unique_ptr<char[]>> m_bloques; ///< the entries: number, length, bytes
    size_t m_usado;                                 ///< of the last block
    std::vector<Lugar> m_casillas;                  ///< an open table; its size is a power of two
    std::vector<quint8> m_marcas;                   ///< of each, some bits of its key's mix: seldom is one read in vain
    size_t m_cuantas = 0;
};

/// Puts a text behind a key in the way in which the tables compare texts: without case, A to Z only, and up to a
/// character of code 0, behind which they look at the length alone. What follows can't run into it.
void AgregaAClave(std::string& clave, QStringView texto);

} // namespace xa518
