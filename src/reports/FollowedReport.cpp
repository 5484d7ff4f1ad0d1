#include "reports/FollowedReport.h"

#include <algorithm>

namespace xa518 {

void InformeSeguido::Recibe(const Comando& comando) {
    m_destino->Recibe(comando);
    if (const auto* etiqueta = std::get_if<Etiqueta>(&comando); etiqueta && etiqueta->clase == Etiqueta::Clase::Hojas)
        m_total = etiqueta->valor.toLongLong();
    if (!std::holds_alternative<NuevaHoja>(comando))
        return;
    ++m_hojas;
    m_avance->Va(m_hojas, std::max(m_total, m_hojas));
}

} // namespace xa518
