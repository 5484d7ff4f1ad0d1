#include "import/UndoImport.h"

#include "data/Base.h"
#include "family/Process.h"
#include "import/UndoMessages.h"
#include "platform/Notices.h"
#include "widgets/LongTask.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Another program has taken the declaration, or the run with it, meanwhile.
Mensaje YaNoEsta() {
    return {Icono::Exclamacion, u"La importación ya no está: no se deshizo nada."_s, {}};
}

void Deshace(QWidget& ventana, const Proceso& proceso, Avisos& avisos, const LoQueSeIria& seIria,
             const std::function<void()>& alDeshacer) {
    CorreTarea(
        ventana, {.titulo = u"Deshaciendo la importación"_s},
        [aparte = ProcesoAparte(proceso), numero = seIria.corrida.numero](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            return VueltaAtras(*suyo.baseDatos).Deshace(numero, avance);
        },
        [&avisos, seIria, alDeshacer](bool deshecha) {
            if (!deshecha)
                return avisos.Muestra(YaNoEsta());
            alDeshacer();
            avisos.Muestra(MensajeDeshecha(seIria));
        });
}

} // namespace

void DeshaceUltimaImportacion(QWidget& ventana, const Proceso& proceso, Avisos& avisos,
                              const std::function<void()>& alDeshacer) {
    CorreTarea(
        ventana, {.titulo = u"Revisando la última importación"_s},
        [aparte = ProcesoAparte(proceso)](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            return VueltaAtras(*suyo.baseDatos).Mira(avance);
        },
        [&ventana, &proceso, &avisos, alDeshacer](const std::optional<LoQueSeIria>& seIria) {
            if (!seIria)
                return avisos.Muestra(YaNoEsta());
            if (avisos.Pregunta(PreguntaPorDeshacer(*seIria), Respuesta::No) == Respuesta::Si)
                Deshace(ventana, proceso, avisos, *seIria, alDeshacer);
        });
}

} // namespace xa518
