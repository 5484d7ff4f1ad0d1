#include "data/WorkLock.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

TrabajoUnico::TrabajoUnico(const Base& base) : m_marca(base.Ruta() + u".trabajo"_s) {
    m_marca.setStaleLockTime(0); // however old it is, it stands while its holder lives
    if (!m_marca.tryLock(0) && m_marca.error() == QLockFile::LockFailedError)
        throw Error(NumeroError::BaseBloqueada, u"Otro programa tiene abierta una declaración. Ciérrela, o espere a que"
                                                " termine, y vuelva a intentarlo."_s);
}

} // namespace xa518
