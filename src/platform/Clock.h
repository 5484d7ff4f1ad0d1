#pragma once

#include <QDateTime>

namespace xa518 {

/// The one place where the time of day comes from.
class Reloj {
  public:
    Reloj() = default;
    Reloj(const Reloj&) = delete;
    Reloj& operator=(const Reloj&) = delete;
    virtual ~Reloj() = default;
    [[nodiscard]] virtual QDateTime Ahora() const = 0;
    [[nodiscard]] QDate Hoy() const { return Ahora().date(); }
};

class RelojSistema final : public Reloj {
  public:
    [[nodiscard]] QDateTime Ahora() const override;
};

/// Stands still at the given moment: for trials with another date, and for tests.
class RelojFijo final : public Reloj {
  public:
    explicit RelojFijo(QDateTime momento);
    [[nodiscard]] QDateTime Ahora() const override { return m_momento; }

  private:
    QDateTime m_momento;
};

} // namespace xa518
