#pragma once

#include <functional>

namespace xa518 {

class Base;
enum class Turno;

/// A transaction of the base: what isn't confirmed is undone when it goes out of scope.
class Transaccion {
  public:
    Transaccion(Transaccion&& otra) noexcept;
    Transaccion& operator=(Transaccion&&) = delete;
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
    ~Transaccion();

    /// Makes the changes permanent; raises `ErrorBase` when the engine can't, and then they are undone.
    void Confirma();
    /// The same where the connection may break while the engine confirms: then `quedo`, which looks for a row of the
    /// transaction by its mark, says whether it arrived, and it raises only when it didn't, or when nobody knows.
    void Confirma(const std::function<bool()>& quedo);

  private:
    friend class Base;
    Transaccion(Base& base, Turno turno);

    void Deshace() noexcept;
    [[nodiscard]] static bool Averigua(Base& base, const std::function<bool()>& quedo);

    Base* m_base;
};

} // namespace xa518
