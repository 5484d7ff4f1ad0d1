#include "printouts/ShowChanges.h"

#include "printouts/FrmCambios.h"
#include "widgets/LongTask.h"

namespace xa518 {

using namespace Qt::StringLiterals;

void MuestraCambios(QWidget& ventana, const ProcesoAparte& aparte, const EntornoInformes& entorno,
                    const PedidoDeComparacion& pedido) {
    CorreTarea(
        ventana, {.titulo = u"Comparando con lo enviado"_s},
        [aparte, pedido](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            return DatosCambios{std::make_shared<const Comparacion>(Compara(*suyo.baseDatos, pedido, avance)),
                                CargarGrilla(*suyo.baseDatos)};
        },
        [&ventana, aparte, entorno](const DatosCambios& datos) {
            FrmCambios cambios(aparte, entorno, datos, &ventana);
            AbreSobre(cambios, ventana);
        });
}

} // namespace xa518
