#include "detail/ShowVerdict.h"

#include "platform/Notices.h"
#include "widgets/WidgetHelpers.h"

#include <QWidget>

namespace xa518 {

using namespace Qt::StringLiterals;

bool Atiende(const QWidget& forma, Avisos& avisos, const Veredicto& veredicto) {
    if (veredicto)
        return true;
    if (veredicto.mensaje)
        avisos.Muestra(*veredicto.mensaje);
    auto* campo = veredicto.campo.isEmpty() ? nullptr : forma.findChild<QWidget*>(veredicto.campo);
    if (campo)
        Enfoca(*campo);
    return false;
}

void Rechaza(Avisos& avisos, const QString& texto) {
    avisos.Muestra({Icono::Critico, texto, {}});
}

bool Confirma(Avisos& avisos, const QString& texto) {
    return avisos.Pregunta({Icono::Pregunta, texto, {}}) == Respuesta::Si;
}

bool ConfirmaEliminacion(Avisos& avisos) {
    const Mensaje mensaje{Icono::Pregunta, u"¿Confirma que va a eliminar la información?"_s, {}};
    return avisos.Pregunta(mensaje, Respuesta::No) == Respuesta::Si;
}

bool PreguntaGuardar(Avisos& avisos) {
    return Confirma(avisos, u"La información ha sido modificada. ¿Desea guardar los cambios?"_s);
}

} // namespace xa518
