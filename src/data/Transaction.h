#pragma once

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

  private:
    friend class Base;
    Transaccion(Base& base, Turno turno);

    void Deshace() noexcept;

    Base* m_base;
};

} // namespace xa518
