#pragma once

#include "import/ImportFormat.h"
#include "import/WorkRows.h"

namespace xa518 {

/// Client and voucher of a cash sale. There is no payment voucher: the voucher is both.
class AlmacenVentas final : public Almacen {
  public:
    AlmacenVentas(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv);

    [[nodiscard]] Objeciones Guarda(const LineaComprobada& linea) override;

  private:
    [[nodiscard]] bool Not_Seek_Det_VC(const LineaComprobada& linea) const;

    Base* m_base;
    AltaCliente m_cliente;
    AltaComprobante m_comprobante;
};

} // namespace xa518
