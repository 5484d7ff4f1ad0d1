#include "declaration/Validation.h"

#include "declaration/Consistency.h"
#include "declaration/FrmConsist.h"
#include "family/Process.h"
#include "platform/Notices.h"
#include "widgets/HourGlass.h"

namespace xa518 {

void MuestraValidacion(Forma& sobre, Avisos& avisos, const Proceso& proceso, const Declaracion& declaracion) {
    RelojDeArena reloj;
    if (const std::optional<Mensaje> aviso = AvisoDeImporte(declaracion))
        avisos.Muestra(*aviso);
    const QStringList lineas = Inconsistencias(declaracion);
    const QString rutaMens = RutaMens(proceso.sysPath, proceso.numFormulario);
    EscribeMens(rutaMens, lineas);
    reloj.Suelta();
    if (lineas.isEmpty()) {
        avisos.Muestra(SinInconsistencias());
    } else {
        FrmConsist ventana(rutaMens, &sobre);
        sobre.AbreModal(ventana);
    }
}

} // namespace xa518
