#include "declaration/TakenTables.h"

#include "data/Base.h"
#include "data/FollowedWork.h"
#include "family/Process.h"
#include "form518/RowCounts.h"
#include "form518/WorkTables.h"
#include "widgets/LongTask.h"

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

void TablasTomadas::TomaClave(Base& base, const ClaveDeclaracion& clave) {
    Presencia* presencia = marca ? marca->LaPresencia() : nullptr;
    if (presencia != nullptr)
        presencia->Toma(clave);
    const EstadoGuardado ahora = EstadoGuardado::De(base, clave);
    if (!guardado.Existe() && !ahora.Existe())
        guardado = ahora;
    if (presencia != nullptr)
        presencia->AnotaEstado(guardado.Texto());
}

void TomaTablas(QWidget& ventana, const Proceso& proceso, const std::optional<DeclaracionElegida>& elegida,
                std::function<void(const TablasTomadas&)> alTenerlas,
                std::function<void(const std::exception_ptr&)> alFallar) {
    const ClaveDeclaracion clave =
        elegida ? elegida->clave : ClaveDeclaracion{.ruc = {}, .periodo = {}, .formulario = proceso.numFormulario};
    const bool soloSeMira = elegida && !elegida->soloSeMira.isEmpty();
    const auto marca = soloSeMira ? nullptr : std::make_shared<TrabajoUnico>(*proceso.baseDatos, clave);
    const std::optional<EstadoGuardado> recuperada = elegida ? elegida->recuperada : std::nullopt;
    CorreTarea(
        ventana, {.titulo = u"Abriendo la declaración"_s, .alFallar = std::move(alFallar)},
        [aparte = ProcesoAparte(proceso), clave, recuperada](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            const TrabajoSeguido seguido(*suyo.baseDatos, avance, FilasDelDetalle(*suyo.baseDatos, clave));
            const EstadoGuardado guardado = recuperada.value_or(EstadoGuardado::De(*suyo.baseDatos, clave));
            if (!recuperada)
                TablasTrabajo(*suyo.baseDatos).Reconstruye(clave);
            return std::pair(LeeTotalesDeCarga(*suyo.baseDatos), guardado);
        },
        [marca, alTenerlas = std::move(alTenerlas)](const std::pair<TotalesDeGrilla, EstadoGuardado>& leido) {
            if (Presencia* presencia = marca ? marca->LaPresencia() : nullptr)
                presencia->AnotaEstado(leido.second.Texto());
            alTenerlas({marca, leido.first, leido.second});
        });
}

} // namespace xa518
