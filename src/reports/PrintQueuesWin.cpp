#include "reports/PrintQueues.h"

namespace xa518 {

/// The spooler starts on demand.
bool RespondeElServicio() {
    return true;
}

/// It takes jobs whatever the printer's state, and shows by itself what hinders them.
EstadoCola EstadoDeCola(const QString& /*nombre*/) {
    return EstadoCola::Lista;
}

/// A job that the spooler refuses fails while it is painted.
QString RechazoDelUltimo() {
    return {};
}

} // namespace xa518
