#pragma once

#include "reports/PrintQueues.h"

#include <QList>
#include <QPagedPaintDevice>
#include <QString>

#include <memory>

namespace xa518 {

/// A printer, as the system's print service knows it.
struct ColaImpresion {
    QString nombre;
    QString descripcion; ///< what people call it; may be empty
    bool predeterminada = false;
    EstadoCola estado = EstadoCola::Lista;

    [[nodiscard]] QString Titulo() const;
};

/// The print service of the system, and its printers.
class ServicioDeImpresion {
  public:
    ServicioDeImpresion() = default;
    ServicioDeImpresion(const ServicioDeImpresion&) = delete;
    ServicioDeImpresion& operator=(const ServicioDeImpresion&) = delete;
    virtual ~ServicioDeImpresion() = default;

    /// Whether it runs at all. When it doesn't nobody knows which printers there are.
    [[nodiscard]] virtual bool Responde() = 0;
    [[nodiscard]] virtual QList<ColaImpresion> Colas() = 0;

    /// The device on which a report called so is painted, on the printer's own paper; its origin is the corner of the
    /// sheet. The job is sent when the painting ends.
    [[nodiscard]] virtual std::unique_ptr<QPagedPaintDevice> Abre(const ColaImpresion& cola, const QString& titulo) = 0;
    /// Why the job that was sent last wasn't taken; empty when it was.
    [[nodiscard]] virtual QString Rechazo() = 0;
};

/// The real one.
[[nodiscard]] std::shared_ptr<ServicioDeImpresion> ServicioDelSistema();

} // namespace xa518
