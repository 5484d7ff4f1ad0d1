#include "reports/PagedPrinter.h"

#include "values/Error.h"

#include <QPageLayout>
#include <QPagedPaintDevice>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kTwipsPorPulgada = 1440;

[[noreturn]] void Falla() {
    throw Error(NumeroError::AccesoAlDisco, u"No se puede imprimir el reporte."_s);
}

} // namespace

void ImpresoraPaginas::Recibe(const Comando& comando) {
    if (const auto* etiqueta = std::get_if<Etiqueta>(&comando)) {
        if (etiqueta->clase == Etiqueta::Clase::Orientacion)
            m_apaisado = etiqueta->valor == u"H";
    } else if (std::holds_alternative<NuevaHoja>(comando)) {
        m_hojaUsada = true;
    } else if (PaginaDe(comando) >= 0) {
        PreparaHoja();
        m_pagina->Pinta(comando);
    }
}

void ImpresoraPaginas::EmpiezaOtro() {
    m_hojaUsada = true;
    m_apaisado = false;
}

void ImpresoraPaginas::Termina() {
    if (!m_pintor.isActive())
        Inicia();
    if (!m_pintor.end())
        Falla();
}

void ImpresoraPaginas::PreparaHoja() {
    if (!m_pintor.isActive()) {
        Inicia();
    } else if (m_hojaUsada) {
        PonOrientacion();
        if (!m_dispositivo->newPage())
            Falla();
        EmpiezaHoja();
    }
    m_hojaUsada = false;
}

void ImpresoraPaginas::Inicia() {
    PonOrientacion();
    if (!m_pintor.begin(m_dispositivo))
        Falla();
    EmpiezaHoja();
}

/// It holds from the next sheet on.
void ImpresoraPaginas::PonOrientacion() {
    m_dispositivo->setPageOrientation(m_apaisado ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void ImpresoraPaginas::EmpiezaHoja() {
    ++m_hojas;
    m_pintor.resetTransform();
    m_pagina = std::make_unique<PintorPagina>(m_pintor, m_dispositivo->logicalDpiX() / kTwipsPorPulgada,
                                              TamanoHoja(m_apaisado).width());
}

} // namespace xa518
