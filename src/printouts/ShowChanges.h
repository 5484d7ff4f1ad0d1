#pragma once

#include "family/Process.h"
#include "form518/Comparison.h"
#include "reports/ShowReport.h"

namespace xa518 {

/// Compares a declaration with a sent copy beside the window's thread, and then shows over the window what differs.
void MuestraCambios(QWidget& ventana, const ProcesoAparte& aparte, const EntornoInformes& entorno,
                    const PedidoDeComparacion& pedido);

} // namespace xa518
