#pragma once

#include "form518/WorkRuns.h"
#include "values/Decimal.h"

#include <QStringList>

namespace xa518 {

class Avance;

/// What an undo of a run takes away: the rows that it added, and what was hung on those since.
struct LoQueSeIria {
    CorridaTrabajo corrida;
    qint64 clientes = 0;
    qint64 comprobantes = 0;
    qint64 pagos = 0;
    Importe base{}; ///< of the vouchers that go
    Importe percepcion{};

    // What was done by hand since.
    qint64 modificadas = 0; ///< rows of the run that were changed; they go as well
    qint64 colgadas = 0;    ///< rows entered by hand under a client or voucher of the run; they go with it
    qint64 eliminadas = 0;  ///< rows of the run that are gone already
    QStringList cuales{};   ///< some of the first two kinds, each in words

    [[nodiscard]] bool HuboManos() const { return modificadas + colgadas + eliminadas > 0; }
};

/// Undoes the last run over the work tables. Work of seconds for a large one: beside the window's thread.
class VueltaAtras {
  public:
    explicit VueltaAtras(Base& base) : m_base(&base) {}

    /// Of the last run; nothing when there is none.
    [[nodiscard]] std::optional<LoQueSeIria> Mira(Avance& avance);

    /// Takes away the run of that number with all that `Mira` counts, and brings the totals of the clients that were
    /// there before back to what they were; those of a client with other vouchers than then are summed. The last delete
    /// can't be brought back after it. One transaction. False, and nothing is done, when that run isn't the last one.
    [[nodiscard]] bool Deshace(int numero, Avance& avance);

  private:
    class Tramos;

    [[nodiscard]] std::optional<Tramos> Lee() const;
    [[nodiscard]] std::optional<LoQueSeIria> Cuenta();
    void CuentaFilas(const Tramos& tramos, LoQueSeIria& seIria);
    void CuentaManos(const Tramos& tramos, LoQueSeIria& seIria);
    void NombraCambiados(const Tramos& tramos, LoQueSeIria& seIria);
    void DevuelveTotales(int numero);

    Base* m_base;
};

} // namespace xa518
