#pragma once

#include <QString>
#include <QStringView>

#include <compare>
#include <optional>

namespace xa518 {

__extension__ using Entero128 = __int128;

/// Reads as a number: blanks around, a sign in front or parentheses around, digits, commas only between groups of
/// three, at most one point. Exponents and other notations don't.
[[nodiscard]] bool EsNumerico(QStringView texto);

/// Reads as a number and its value is 0, however long it is.
[[nodiscard]] bool EsNumericoCero(QStringView texto);

/// The sign, -1, 0 or 1, of a text's leading numeric part (see `Decimal::Valor`), however long it is.
[[nodiscard]] int SignoDelValor(QStringView texto);

/// An exact decimal as it was written: every digit counts, nothing is binary.
/// Holds 36 significant digits; past that every operation raises `Desbordamiento`.
class Decimal {
  public:
    Decimal() = default;
    [[nodiscard]] static Decimal DeEntero(qint64 valor) { return {valor, 0}; }

    /// The number that the whole text reads as; nothing when it isn't numeric.
    [[nodiscard]] static std::optional<Decimal> Lee(QStringView texto);

    /// The leading numeric part, 0 when there is none. A blank or a comma ends it.
    [[nodiscard]] static Decimal Valor(QStringView texto);

    [[nodiscard]] int Signo() const { return m_mantisa < 0 ? -1 : m_mantisa > 0 ? 1 : 0; }
    [[nodiscard]] Decimal Absoluto() const { return {m_mantisa < 0 ? -m_mantisa : m_mantisa, m_decimales}; }
    [[nodiscard]] Decimal Opuesto() const { return {-m_mantisa, m_decimales}; }

    /// The same value with exactly that many decimals, ties away from zero, as the masks round.
    [[nodiscard]] Decimal RedondeaFuera(int decimales) const;
    /// The same, ties to the even neighbour, as a conversion to currency rounds.
    [[nodiscard]] Decimal RedondeaPar(int decimales) const;

    [[nodiscard]] Entero128 Mantisa() const { return m_mantisa; }
    [[nodiscard]] int Decimales() const { return m_decimales; }

    /// Shortest form: a point, no trailing zeros, no separators: "-100.5".
    [[nodiscard]] QString Texto() const;

    friend Decimal operator*(const Decimal& a, const Decimal& b);
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);
    friend bool operator==(const Decimal& a, const Decimal& b) { return std::is_eq(a <=> b); }

  private:
    Decimal(Entero128 mantisa, int decimales) : m_mantisa(mantisa), m_decimales(decimales) {}
    friend class Importe;

    Entero128 m_mantisa = 0;
    int m_decimales = 0;
};

/// An amount of money: whole ten-thousandths in 64 bits, so up to 922,337,203,685,477.5807.
/// A result past that raises `Desbordamiento`.
class Importe {
  public:
    Importe() = default;

    /// Fixed to four decimals, ties to even.
    [[nodiscard]] static Importe De(const Decimal& valor);
    /// The leading numeric part of a text, fixed to four decimals.
    [[nodiscard]] static Importe Valor(QStringView texto) { return De(Decimal::Valor(texto)); }

    /// The amount that the whole text reads as; nothing when it isn't numeric.
    [[nodiscard]] static std::optional<Importe> Lee(QStringView texto);

    [[nodiscard]] Decimal ADecimal() const { return {m_diezmilesimos, 4}; }
    [[nodiscard]] int Signo() const { return m_diezmilesimos < 0 ? -1 : m_diezmilesimos > 0 ? 1 : 0; }
    [[nodiscard]] QString Texto() const { return ADecimal().Texto(); }

    friend Importe operator+(Importe a, Importe b);
    Importe& operator+=(Importe otro) { return *this = *this + otro; }
    auto operator<=>(const Importe&) const = default;

  private:
    explicit Importe(qint64 diezmilesimos) : m_diezmilesimos(diezmilesimos) {}

    qint64 m_diezmilesimos = 0;
};

} // namespace xa518
