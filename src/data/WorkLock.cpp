#include "data/WorkLock.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

TrabajoUnico::TrabajoUnico(const Base& base) : m_marca(base.Ruta() + u".trabajo"_s) {
    if (!m_marca.Toma())
        throw Error(NumeroError::BaseBloqueada, u"Otro programa tiene abierta una declaración. Ciérrela, o espere a que"
                                                " termine, y vuelva a intentarlo."_s);
}

} // namespace xa518
