#include "reports/ReportSheets.h"

namespace xa518 {

void HojasInforme::Recibe(const Comando& comando) {
    if (const auto* etiqueta = std::get_if<Etiqueta>(&comando)) {
        if (etiqueta->clase == Etiqueta::Clase::Orientacion)
            m_apaisado = etiqueta->valor == u"H";
    } else if (std::holds_alternative<NuevaHoja>(comando)) {
        m_hojaUsada = true;
    } else if (PaginaDe(comando) >= 0) {
        PreparaHoja();
        Pinta(comando);
    }
}

void HojasInforme::EmpiezaOtro() {
    m_hojaUsada = true;
    m_apaisado = false;
}

void HojasInforme::Termina() {
    if (m_hojas == 0)
        PreparaHoja();
    Cierra();
}

void HojasInforme::PreparaHoja() {
    if (!m_hojaUsada)
        return;
    m_hojaUsada = false;
    ++m_hojas;
    EmpiezaHoja(m_apaisado);
}

} // namespace xa518
