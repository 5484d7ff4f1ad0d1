#include "detail/ShowVerdict.h"

namespace xa518 {

using namespace Qt::StringLiterals;

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
