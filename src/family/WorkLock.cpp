#include "family/WorkLock.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

TrabajoAjeno::TrabajoAjeno()
    : Error(NumeroError::BaseBloqueada,
            u"Otro programa tiene abierta una declaración. Ciérrela, o espere a que termine,"
            " y vuelva a intentarlo."_s) {}

TrabajoUnico::TrabajoUnico(Base& base) {
    const std::optional<bool> tomado = base.TomaTrabajo();
    if (!tomado)
        TomaMarca(base.Ruta());
    else if (!*tomado)
        throw TrabajoAjeno();
    else
        m_base = &base;
}

TrabajoUnico::TrabajoUnico(const QString& rutaBase) {
    if (!EsDeServidor(rutaBase))
        TomaMarca(rutaBase);
}

TrabajoUnico::~TrabajoUnico() {
    if (m_base != nullptr)
        m_base->SueltaTrabajo();
}

void TrabajoUnico::TomaMarca(const QString& rutaBase) {
    m_marca.emplace(rutaBase + u".trabajo"_s);
    if (!m_marca->Toma())
        throw TrabajoAjeno();
}

} // namespace xa518
