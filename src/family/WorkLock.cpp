#include "family/WorkLock.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

TrabajoAjeno::TrabajoAjeno()
    : Error(NumeroError::BaseBloqueada,
            u"Otro programa tiene abierta una declaración. Ciérrela, o espere a que termine,"
            " y vuelva a intentarlo."_s) {}

TrabajoUnico::TrabajoUnico(const Base& base) : TrabajoUnico(base.Ruta()) {}

TrabajoUnico::TrabajoUnico(const QString& rutaBase) : m_marca(rutaBase + u".trabajo"_s) {
    if (!m_marca.Toma())
        throw TrabajoAjeno();
}

} // namespace xa518
