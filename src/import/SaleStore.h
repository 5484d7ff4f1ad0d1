#pragma once

#include "import/ImportFormat.h"
#include "import/WorkRows.h"

namespace xa518 {

/// Client and voucher of a cash sale. There is no payment voucher: the voucher is both.
class AlmacenVentas final : public Almacen {
  public:
    using Almacen::Almacen;

    [[nodiscard]] Objeciones Guarda(const LineaComprobada& linea, qint64 numero) override;
};

} // namespace xa518
