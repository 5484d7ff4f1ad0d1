#pragma once

#include <QString>
#include <QStringView>

#include <compare>

namespace xa518 {

/// The code of a document type, such as 6 of the RUC. "06" and "6" are the same one.
class CodigoDocumento {
  public:
    constexpr CodigoDocumento() = default; ///< no type chosen: no row has it
    constexpr explicit CodigoDocumento(int valor) : m_valor(valor) {}
    /// What isn't a whole number is no type.
    [[nodiscard]] static CodigoDocumento De(QStringView texto);

    [[nodiscard]] constexpr int Valor() const { return m_valor; } ///< as the tables keep it
    [[nodiscard]] QString Texto() const;                          ///< as the lists show it: two digits, or empty

    [[nodiscard]] constexpr bool EstaVacio() const { return m_valor == 0; }
    [[nodiscard]] constexpr bool EsDni() const { return m_valor == 1; }
    [[nodiscard]] constexpr bool EsRuc() const { return m_valor == 6; }

    constexpr auto operator<=>(const CodigoDocumento&) const = default;

  private:
    int m_valor = 0;
};

} // namespace xa518
