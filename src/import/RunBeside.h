#pragma once

#include "family/Process.h"
#include "import/ImportRun.h"

#include <atomic>
#include <memory>
#include <optional>

namespace xa518 {

/// A run in its thread, with a base of its own, and what a window sees of it meanwhile.
class CorridaAparte final : public ObservadorImportacion {
  public:
    CorridaAparte(const Proceso& proceso, ClaveDeclaracion clave);

    /// In the run's thread. What a failure left is in the result.
    void Corre(const FormatoImportacion& formato, const QString& carpeta, const OpcionesImportacion& opciones);

    // In the window's.

    [[nodiscard]] AvanceImportacion Avance() const;
    void Cancela() { m_cancelada = true; }
    /// Once it has ended.
    [[nodiscard]] const ResultadoImportacion& Resultado() const { return m_resultado; }

  private:
    [[nodiscard]] bool Sigue(const AvanceImportacion& avance) override;

    ProcesoAparte m_aparte;
    ClaveDeclaracion m_clave;
    std::optional<Proceso> m_proceso;
    std::unique_ptr<Transferencia> m_transferencia; ///< kept where a refused file stays open behind it
    ResultadoImportacion m_resultado;
    std::atomic<bool> m_cancelada = false;
    std::atomic<qint64> m_transferidos = 0;
    std::atomic<qint64> m_rechazados = 0;
    std::atomic<qint64> m_bytesLeidos = 0;
    std::atomic<qint64> m_bytesTotal = 0;
};

} // namespace xa518
