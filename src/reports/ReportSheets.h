#pragma once

#include "reports/PageCommands.h"

namespace xa518 {

/// Takes a report, or several one after the other, as sheets.
/// A sheet begins when the first command for it comes: the end of the last page wastes none, nor does an empty one.
class HojasInforme : public DestinoInforme {
  public:
    void Recibe(const Comando& comando) final;
    /// Nothing received makes an empty sheet.
    void Termina() final;
    /// What follows is another report and begins a sheet of its own.
    void EmpiezaOtro();
    [[nodiscard]] int Hojas() const { return m_hojas; }

  protected:
    virtual void EmpiezaHoja(bool apaisado) = 0;
    virtual void Pinta(const Comando& comando) = 0;
    virtual void Cierra() = 0;

  private:
    void PreparaHoja();

    bool m_apaisado = false;
    bool m_hojaUsada = true;
    int m_hojas = 0;
};

} // namespace xa518
