#include "family/WorkLock.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

TrabajoUnico::TrabajoUnico(Base& base, const ClaveDeclaracion& clave) {
    if (base.LosPuestos() == nullptr)
        TomaMarca(base.Ruta());
    else
        m_presencia.emplace(base, clave);
}

TrabajoUnico::TrabajoUnico(Base& base, const Ruc& ruc) {
    if (base.LosPuestos() == nullptr)
        TomaMarca(base.Ruta());
    else
        ExigeSinAbiertasDe(base, ruc);
}

TrabajoUnico::TrabajoUnico(const QString& rutaBase) {
    if (!EsDeServidor(rutaBase))
        TomaMarca(rutaBase);
}

void TrabajoUnico::TomaMarca(const QString& rutaBase) {
    m_marca.emplace(rutaBase + u".trabajo"_s);
    if (!m_marca->Toma())
        throw TrabajoAjeno();
}

} // namespace xa518
