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

    /// Makes the changes permanent; raises `ErrorBase` when the engine can't, and then they are undone. When the
    /// connection breaks meanwhile another one is asked whether they arrived, and it raises only when they didn't, or
    /// `ConfirmacionIncierta`.
    void Confirma();
    /// The same by `quedo`, which looks for the transaction's row in the log by its mark.
    void Confirma(const std::function<bool()>& quedo);

  private:
    friend class Base;
    Transaccion(Base& base, Turno turno);

    /// Where a person looks for what nobody can tell.
    enum class Rastro { EnBitacora, Ninguno };

    void Confirma(const std::function<bool()>& quedo, Rastro rastro);
    void PideConfirmar();
    void Deshace() noexcept;
    [[nodiscard]] static bool Averigua(Base& base, const std::function<bool()>& quedo, Rastro rastro);

    Base* m_base;
};

} // namespace xa518
