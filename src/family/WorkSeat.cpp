#include "family/WorkSeat.h"

#include "family/Process.h"

#include <QCoreApplication>
#include <QSysInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

std::optional<Puesto> OcupaPuesto(Proceso& proceso) {
    Base& base = *proceso.baseDatos;
    if (base.LosPuestos() == nullptr)
        return std::nullopt;
    try {
        return base.LosPuestos()->Toma({.usuario = proceso.sysUser,
                                        .equipo = QSysInfo::machineHostName(),
                                        .programa = QCoreApplication::applicationName()});
    } catch (const ErrorBase&) {
        if (!base.SoloLectura())
            throw;
        return std::nullopt; // a copy of the server takes nothing at all
    }
}

QString PorQueNoSeEscribe(const Base& base) {
    return base.SoloLectura() ? u"La cuenta con la que se conecta al servidor es sólo de lectura."_s : QString();
}

} // namespace xa518
