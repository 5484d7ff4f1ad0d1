#pragma once

#include "reports/PagePainter.h"
#include "reports/ReportSheets.h"

#include <QPainter>

#include <memory>

class QPagedPaintDevice;

namespace xa518 {

/// Prints a report on a device of sheets. It raises `Error` (`AccesoAlDisco`) when the device takes no more.
class ImpresoraPaginas final : public HojasInforme {
  public:
    /// The device's origin must be the corner of its sheet, not of what it can print.
    explicit ImpresoraPaginas(QPagedPaintDevice& dispositivo) : m_dispositivo(&dispositivo) {}

  private:
    void EmpiezaHoja(bool apaisado) override;
    void Pinta(const Comando& comando) override { m_pagina->Pinta(comando); }
    void Cierra() override;

    QPagedPaintDevice* m_dispositivo;
    QPainter m_pintor;
    std::unique_ptr<PintorPagina> m_pagina;
};

} // namespace xa518
