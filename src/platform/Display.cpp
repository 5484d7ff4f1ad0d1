#include "platform/Display.h"

#include <QString>

#ifndef Q_OS_WIN
#include <xcb/xcb.h>
#endif

namespace xa518 {

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN
bool HayPantalla() {
    return true;
}
#else
bool HayPantalla() {
    const QString plataforma = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (!plataforma.isEmpty() && !plataforma.startsWith("xcb"_L1))
        return true;
    xcb_connection_t* conexion = xcb_connect(nullptr, nullptr);
    const bool responde = xcb_connection_has_error(conexion) == 0;
    xcb_disconnect(conexion);
    return responde;
}
#endif

} // namespace xa518
