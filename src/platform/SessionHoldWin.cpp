#include "platform/SessionHold.h"

#include <qt_windows.h>

namespace xa518 {

void MotivoDeEspera(Manejador ventana, const QString& motivo) {
    const auto suya = reinterpret_cast<HWND>(ventana); // NOLINT(*-reinterpret-cast, *-int-to-ptr)
    if (motivo.isEmpty())
        ShutdownBlockReasonDestroy(suya);
    else
        ShutdownBlockReasonCreate(suya, motivo.toStdWString().c_str());
}

} // namespace xa518
