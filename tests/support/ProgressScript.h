#pragma once

#include "values/Progress.h"

#include <functional>

namespace xa518 {

/// Follows a work as the test says, and stops it by raising `Detenido`.
class AvanceDePrueba final : public Avance {
  public:
    explicit AvanceDePrueba(std::function<void(qint64 hecho, qint64 total)> mira) : m_mira(std::move(mira)) {}
    void Va(qint64 hecho, qint64 total) override { m_mira(hecho, total); }

  private:
    std::function<void(qint64, qint64)> m_mira;
};

} // namespace xa518
