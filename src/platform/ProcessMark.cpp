#include "platform/ProcessMark.h"

#include "values/PrivateAccess.h"

#include <QThread>

namespace xa518 {

namespace {

constexpr unsigned long kParaNombrarse = 200; ///< milliseconds, more than a living holder takes

bool NombraASuDuenio(const QLockFile& marca) {
    qint64 proceso = 0;
    QString equipo;
    QString programa;
    return marca.getLockInfo(&proceso, &equipo, &programa);
}

/// Whoever dies, or loses the power, while it sets its mark leaves a file that names nobody: no process ends by which
/// the toolkit would know it for stale.
bool EsDeNadie(const QLockFile& marca) {
    if (NombraASuDuenio(marca))
        return false;
    QThread::msleep(kParaNombrarse);
    return !NombraASuDuenio(marca);
}

} // namespace

MarcaDeProceso::MarcaDeProceso(const QString& ruta) : m_marca(ruta) {
    m_marca.setStaleLockTime(0); // however old it is, it stands while its holder lives
}

bool MarcaDeProceso::Toma() {
    if (m_marca.isLocked())
        return true;
    const bool ajena = !m_marca.tryLock(0) && m_marca.error() == QLockFile::LockFailedError;
    if (ajena && !(EsDeNadie(m_marca) && m_marca.removeStaleLockFile() && m_marca.tryLock(0)))
        return false;
    if (m_marca.isLocked()) // it names the person's machine, and the toolkit makes it for everybody to read
        (void)HazPrivado(m_marca.fileName());
    return true;
}

} // namespace xa518
