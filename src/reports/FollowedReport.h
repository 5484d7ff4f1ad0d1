#pragma once

#include "reports/PageCommands.h"
#include "values/Progress.h"

namespace xa518 {

/// Hands a report on and tells how many of its pages have gone by; the report says itself how many it has.
class InformeSeguido final : public DestinoInforme {
  public:
    InformeSeguido(DestinoInforme& destino, Avance& avance) : m_destino(&destino), m_avance(&avance) {}

    /// Raises `Detenido` at the end of a page.
    void Recibe(const Comando& comando) override;
    void Termina() override { m_destino->Termina(); }

  private:
    DestinoInforme* m_destino;
    Avance* m_avance;
    qint64 m_hojas = 0;
    qint64 m_total = 0;
};

} // namespace xa518
