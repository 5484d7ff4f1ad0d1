#include "reports/DefaultPrinter.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace xa518 {

std::unique_ptr<QPagedPaintDevice> ImpresoraPredeterminada(const QString& titulo) {
    const QPrinterInfo predeterminada = QPrinterInfo::defaultPrinter();
    if (predeterminada.isNull())
        return nullptr;
    auto impresora = std::make_unique<QPrinter>(predeterminada, QPrinter::HighResolution);
    impresora->setFullPage(true);
    impresora->setDocName(titulo);
    return impresora;
}

} // namespace xa518
