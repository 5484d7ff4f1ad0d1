#include "reports/PagedPrinter.h"

#include "values/Error.h"

#include <QPageLayout>
#include <QPagedPaintDevice>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kTwipsPorPulgada = 1440;

void Exige(bool hecho) {
    if (!hecho)
        throw Error(NumeroError::AccesoAlDisco, u"No se puede imprimir el reporte."_s);
}

} // namespace

/// The orientation holds from the next sheet on.
void ImpresoraPaginas::EmpiezaHoja(bool apaisado) {
    m_dispositivo->setPageOrientation(apaisado ? QPageLayout::Landscape : QPageLayout::Portrait);
    Exige(m_pintor.isActive() ? m_dispositivo->newPage() : m_pintor.begin(m_dispositivo));
    m_pintor.resetTransform();
    m_pagina = std::make_unique<PintorPagina>(m_pintor, m_dispositivo->logicalDpiX() / kTwipsPorPulgada,
                                              TamanoHoja(apaisado).width());
}

void ImpresoraPaginas::Cierra() {
    Exige(m_pintor.end());
}

} // namespace xa518
