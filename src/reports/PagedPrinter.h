#pragma once

#include "reports/PagePainter.h"

#include <QPainter>

#include <memory>

class QPagedPaintDevice;

namespace xa518 {

/// Prints a report, or several one after the other, on a device of sheets: a printer, or a PDF.
/// A sheet begins when the first command for it comes: the end of the last page wastes none, nor does an empty one.
class ImpresoraPaginas final : public DestinoInforme {
  public:
    /// The device's origin must be the corner of its sheet, not of what it can print.
    explicit ImpresoraPaginas(QPagedPaintDevice& dispositivo) : m_dispositivo(&dispositivo) {}

    void Recibe(const Comando& comando) override;
    /// Ends the document. Nothing received makes an empty sheet.
    void Termina() override;
    /// What follows is another report and begins a sheet of its own.
    void EmpiezaOtro();
    [[nodiscard]] int Hojas() const { return m_hojas; }

  private:
    void PreparaHoja();
    void Inicia();
    void PonOrientacion();
    void EmpiezaHoja();

    QPagedPaintDevice* m_dispositivo;
    QPainter m_pintor;
    std::unique_ptr<PintorPagina> m_pagina;
    bool m_apaisado = false;
    bool m_hojaUsada = false;
    int m_hojas = 0;
};

} // namespace xa518
