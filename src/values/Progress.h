#pragma once

#include <QtGlobal>

#include <exception>

namespace xa518 {

/// Ends a long work that somebody has asked to stop. It is no `Error`: what the work had begun is undone as after any
/// failure, and nobody has to be told.
class Detenido final : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "stopped"; }
};

/// Whoever follows a long work, and may stop it. It is told from the thread of the work.
class Avance {
  public:
    Avance() = default;
    Avance(const Avance&) = delete;
    Avance& operator=(const Avance&) = delete;
    virtual ~Avance() = default;

    /// How much is done, of a total in the same units; 0 while that isn't known. Raises `Detenido` when the work is to
    /// stop. Cheap enough for every row.
    virtual void Va(qint64 hecho, qint64 total) = 0;
};

/// Of work that nobody follows.
class SinAvance final : public Avance {
  public:
    void Va(qint64 /*hecho*/, qint64 /*total*/) override {}
};

} // namespace xa518
