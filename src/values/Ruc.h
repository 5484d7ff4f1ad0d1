#pragma once

#include <QString>
#include <QStringView>

namespace xa518 {

/// The number under which the administration knows a taxpayer. It is kept as it came, trimmed: what isn't valid is
/// refused by a rule, with words, and never lost on the way to it.
class Ruc {
  public:
    static constexpr int kLargo = 11;
    static constexpr int kLargoAntiguo = 8;

    Ruc() = default;
    explicit Ruc(QStringView texto);

    [[nodiscard]] const QString& Texto() const { return m_texto; }
    [[nodiscard]] bool EstaVacio() const { return m_texto.isEmpty(); }

    /// Eleven digits, the last of which is the check digit of the first ten.
    [[nodiscard]] bool EsValido() const;
    /// Of the old form, eight characters: by its length alone.
    [[nodiscard]] bool EsAntiguo() const { return m_texto.size() == kLargoAntiguo; }
    /// Of a company; any other is a person's.
    [[nodiscard]] bool EsDeEmpresa() const { return m_texto.startsWith(u"20"); }

    bool operator==(const Ruc&) const = default;

  private:
    QString m_texto;
};

} // namespace xa518
