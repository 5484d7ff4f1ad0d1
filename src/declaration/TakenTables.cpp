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
}

void TomaTablas(QWidget& ventana, const Proceso& proceso, const std::optional<DeclaracionElegida>& elegida,
                std::function<void(const TablasTomadas&)> alTenerlas,
                std::function<void(const std::exception_ptr&)> alFallar) {
    const ClaveDeclaracion clave =
        elegida ? elegida->clave : ClaveDeclaracion{.ruc = {}, .periodo = {}, .formulario = proceso.numFormulario};
    const bool soloSeMira = elegida && !elegida->soloSeMira.isEmpty();
    const auto marca = soloSeMira ? nullptr : std::make_shared<TrabajoUnico>(*proceso.baseDatos, clave);
    const std::optional<SinGrabar> retomada = elegida ? elegida->retomada : std::nullopt;
    CorreTarea(
        ventana, {.titulo = u"Abriendo la declaración"_s, .alFallar = std::move(alFallar)},
        [aparte = ProcesoAparte(proceso), clave, retomada](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            Base& base = *suyo.baseDatos;
            const TrabajoSeguido seguido(base, avance, FilasDelDetalle(base, clave));
            TablasTomadas tablas;
            if (retomada) {
                tablas.guardado = retomada->guardado;
                tablas.completado = CompletaElDetalle(base);
            } else {
                tablas.guardado = EstadoGuardado::De(base, clave);
                TablasTrabajo(base).Reconstruye(clave);
            }
            tablas.totales = LeeTotalesDeCarga(base);
            return tablas;
        },
        [marca, alTenerlas = std::move(alTenerlas)](TablasTomadas tablas) {
            tablas.marca = marca;
            alTenerlas(tablas);
        });
}

} // namespace xa518
