#include "import/RunBeside.h"

#include "data/Base.h"
#include "import/RunMessages.h"

#include <QScopeGuard>

#include <utility>

namespace xa518 {

namespace {

ResultadoImportacion SinEmpezar(const Error& error) {
    ResultadoImportacion resultado;
    resultado.fin = FinImportacion::Fallida;
    resultado.falla = error;
    resultado.mensaje = Errores_Transferencia(error);
    return resultado;
}

} // namespace

CorridaAparte::CorridaAparte(const Proceso& proceso, ClaveDeclaracion clave)
    : m_aparte(proceso), m_clave(std::move(clave)) {}

void CorridaAparte::Corre(const FormatoImportacion& formato, const QString& carpeta,
                          const OpcionesImportacion& opciones) {
    try {
        m_proceso.emplace(m_aparte.Abre());
        const auto cierra = qScopeGuard([this] { m_proceso->baseDatos.reset(); });
        m_transferencia = std::make_unique<Transferencia>(*m_proceso, m_clave, formato, carpeta, opciones);
        m_resultado = m_transferencia->Corre(*this);
        if (!m_transferencia->TieneAbierto())
            m_transferencia.reset();
    } catch (const Error& error) {
        m_resultado = SinEmpezar(error);
    }
}

AvanceImportacion CorridaAparte::Avance() const {
    return {m_transferidos.load(), m_rechazados.load(), m_bytesLeidos.load(), m_bytesTotal.load()};
}

bool CorridaAparte::Sigue(const AvanceImportacion& avance) {
    constexpr auto kSinOrden = std::memory_order_relaxed;
    m_transferidos.store(avance.transferidos, kSinOrden);
    m_rechazados.store(avance.rechazados, kSinOrden);
    m_bytesLeidos.store(avance.bytesLeidos, kSinOrden);
    m_bytesTotal.store(avance.bytesTotal, kSinOrden);
    return !m_cancelada.load(kSinOrden);
}

} // namespace xa518
