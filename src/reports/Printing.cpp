#include "reports/Printing.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The toolkit knows the printers and their paper; how their queues do, only the system.
class ServicioReal final : public ServicioDeImpresion {
  public:
    bool Responde() override { return RespondeElServicio(); }

    QList<ColaImpresion> Colas() override {
        QList<ColaImpresion> colas;
        const QList<QPrinterInfo> impresoras = QPrinterInfo::availablePrinters();
        for (const QPrinterInfo& impresora : impresoras)
            colas.append({impresora.printerName(), impresora.description(), impresora.isDefault(),
                          EstadoDeCola(impresora.printerName())});
        return colas;
    }

    std::unique_ptr<QPagedPaintDevice> Abre(const ColaImpresion& cola, const QString& titulo) override {
        auto impresora = std::make_unique<QPrinter>(QPrinterInfo::printerInfo(cola.nombre), QPrinter::HighResolution);
        impresora->setFullPage(true);
        impresora->setDocName(titulo);
        return impresora;
    }

    QString Rechazo() override { return RechazoDelUltimo(); }
};

} // namespace

QString ColaImpresion::Titulo() const {
    return descripcion.isEmpty() || descripcion == nombre ? nombre : u"%1 (%2)"_s.arg(descripcion, nombre);
}

std::shared_ptr<ServicioDeImpresion> ServicioDelSistema() {
    return std::make_shared<ServicioReal>();
}

} // namespace xa518
