#include "declaration/SaveTask.h"

#include "data/FollowedWork.h"
#include "declaration/Save.h"
#include "family/Process.h"
#include "form518/RowCounts.h"
#include "widgets/LongTask.h"

namespace xa518 {

using namespace Qt::StringLiterals;

void GrabaAparte(QWidget& ventana, const Proceso& proceso, const Declaracion& declaracion,
                 const EstadoGuardado& conocido, std::function<void(const ResultadoGrabacion&)> alGrabar) {
    CorreTarea(
        ventana, {.titulo = u"Grabando la declaración"_s},
        [aparte = ProcesoAparte(proceso), declaracion, conocido](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            Base& base = *suyo.baseDatos;
            const TrabajoSeguido seguido(base, avance, FilasDelDetalle(base, declaracion.clave));
            return GrabaDeclaracion(base, declaracion, conocido, suyo.SuFirma());
        },
        std::move(alGrabar));
}

} // namespace xa518
