#pragma once

#include "reports/ShowReport.h"

namespace xa518 {

/// Prints the report's range on the printer, or on one of several, which the user is asked for. Where nothing can be
/// printed the user is told why, and may keep the report as PDF instead. Tells what went where.
void ImprimeReporte(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget& padre);

/// Keeps pages of the report as PDF, in a file that the user is asked for, and tells so.
void GuardaReporteComoPdf(const EntornoInformes& entorno, const ReportePedido& pedido, const RangoPaginas& rango,
                          QWidget& padre);

} // namespace xa518
