#pragma once

#include <QDate>
#include <QString>
#include <QStringView>

#include <compare>
#include <optional>

namespace xa518 {

/// A tax period: a month of a year. It stands `yyyymm` in the tables, `mm/yyyy` on the screen and on paper, `mmyyyy` in
/// the lists, and each spelling is read and written here alone. A period that was made from nothing is none: it comes
/// before every month, writes as the empty text, and no row is found by it.
class Periodo {
  public:
    constexpr Periodo() = default;
    constexpr explicit Periodo(int anio, int mes) : m_valor(anio * 100 + mes) {}

    /// Six digits, as the tables and the catalogue keep it: what they hold isn't asked for a real month.
    [[nodiscard]] static std::optional<Periodo> DeTabla(QStringView texto);
    /// "mm/yyyy" or "mmyyyy", of a real month.
    [[nodiscard]] static std::optional<Periodo> DePantalla(QStringView texto);
    /// Of a date `dd/mm/yyyy`, from the characters where its month stands, so that a day which the calendar lacks has
    /// its period too; nothing while they aren't all there.
    [[nodiscard]] static std::optional<Periodo> DeFecha(QStringView fecha);
    [[nodiscard]] static Periodo DelDia(const QDate& dia) { return Periodo(dia.year(), dia.month()); }

    [[nodiscard]] constexpr bool EsNinguno() const { return m_valor == 0; }
    [[nodiscard]] constexpr int Anio() const { return m_valor / 100; }
    [[nodiscard]] constexpr int Mes() const { return m_valor % 100; }

    [[nodiscard]] QString Texto() const;      ///< yyyymm
    [[nodiscard]] QString EnPantalla() const; ///< mm/yyyy
    [[nodiscard]] QString EnLista() const;    ///< mmyyyy

    /// Of a real month.
    [[nodiscard]] Periodo Siguiente() const;
    [[nodiscard]] Periodo Anterior() const;

    constexpr auto operator<=>(const Periodo&) const = default; // NOLINT(modernize-use-nullptr): the check errs here

  private:
    int m_valor = 0; ///< yyyymm as a number
};

} // namespace xa518
