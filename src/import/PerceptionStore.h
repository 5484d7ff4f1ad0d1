#pragma once

#include "import/ImportFormat.h"
#include "import/WorkRows.h"

namespace xa518 {

/// Client, perception voucher and payment voucher of a line, each in its own work table.
class AlmacenPercepciones final : public Almacen {
  public:
    AlmacenPercepciones(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv);

    [[nodiscard]] Objeciones Guarda(const LineaComprobada& linea) override;

  private:
    enum class Leido { No, Igual, Distinto };
    [[nodiscard]] Leido Not_Seek_Det_N(const LineaComprobada& linea) const;

    Base* m_base;
    AltaCliente m_cliente;
    AltaComprobante m_comprobante;
    AltaPago m_pago;
};

} // namespace xa518
