#pragma once

#include "values/Decimal.h"

#include <QString>

namespace xa518 {

/// An amount in the writing of whoever gave it, the file or the field. Wanted: the tables keep that writing ("100.5"
/// stays "100.5", a third decimal stays), and checksums, print-outs and the comparison of vouchers are taken from it.
class MontoEscrito {
  public:
    MontoEscrito() = default; ///< none: null in its row
    explicit MontoEscrito(QString texto) : m_texto(std::move(texto)) {}

    [[nodiscard]] const QString& Texto() const { return m_texto; }
    [[nodiscard]] bool EstaVacio() const { return m_texto.isEmpty(); }
    [[nodiscard]] Decimal Valor() const { return Decimal::Valor(m_texto); }

  private:
    QString m_texto;
};

} // namespace xa518
