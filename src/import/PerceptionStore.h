#pragma once

#include "import/ImportFormat.h"
#include "import/WorkRows.h"

namespace xa518 {

/// Client, perception voucher and payment voucher of a line, each in its own work table.
class AlmacenPercepciones final : public Almacen {
  public:
    using Almacen::Almacen;

    [[nodiscard]] Objeciones Guarda(const LineaComprobada& linea, qint64 numero) override;
};

} // namespace xa518
