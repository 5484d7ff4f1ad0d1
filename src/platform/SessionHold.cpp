#include "platform/SessionHold.h"

namespace xa518 {

void MotivoDeEspera(Manejador /*ventana*/, const QString& /*motivo*/) {}

} // namespace xa518
