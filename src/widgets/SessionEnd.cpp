#include "widgets/SessionEnd.h"

#include "platform/SessionHold.h"

#include <QApplication>
#include <QSessionManager>
#include <QWidget>

namespace xa518 {

void RetieneLaSesion(QWidget& ventana, std::function<bool()> mientras, const QString& motivo) {
    const auto responde = [&ventana, mientras = std::move(mientras), motivo](QSessionManager& sesion) {
        const bool retiene = mientras();
        MotivoDeEspera(ventana.window()->winId(), retiene ? motivo : QString());
        if (retiene)
            sesion.cancel();
    };
    // At once, since the answer goes back to the system with the call.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &ventana, responde, Qt::DirectConnection);
}

} // namespace xa518
