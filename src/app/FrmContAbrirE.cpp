#include "app/FrmContAbrirE.h"

#include "app/DeclarationLists.h"
#include "family/Process.h"

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAncho = 920; ///< room for the name beside eight other columns

} // namespace

FrmContAbrirE::FrmContAbrirE(const Entorno& entorno, OpcionDeLista opcion, QWidget* padre)
    : FormaSeleccion(entorno, opcion,
                     {u"RUC"_s, u"Nombre o razón social"_s, u"Período"_s, u"Form."_s, u"Nro. orden"_s, u"Enviada"_s,
                      u"Control"_s, u"Copia"_s, u"Rectifica"_s},
                     u"Declaraciones Enviadas"_s, padre) {
    setObjectName(u"FrmContAbrirE"_s);
    resize(kAncho, height());
    if (opcion == OpcionDeLista::Eliminar)
        Presenta({u"Eliminar Declaraciones Enviadas"_s, u"&Eliminar"_s,
                  u"Seleccione la Declaración que desea eliminar :"_s});
    else
        Presenta({u"Registrar número de orden"_s, u"&Registrar"_s,
                  u"Seleccione la Declaración en la que desea registrar el número de orden asignado por ZOLMA :"_s});
    PonConsulta(SqlEnviadas(ElProceso(), MomentoEnviadas::Carga));
    Refresca();
}

DeclaracionElegida FrmContAbrirE::Elegida(int fila) const {
    DeclaracionElegida elegida = FormaSeleccion::Elegida(fila);
    elegida.clave.enviada = true;
    elegida.clave.correl = Celda(fila, ColumnaDeLista::Correl);
    elegida.norden = Celda(fila, ColumnaDeLista::NOrden);
    elegida.control = Celda(fila, ColumnaDeLista::Control);
    return elegida;
}

/// From the second time on the list is another one than at load; the command's own refresh then reads it.
void FrmContAbrirE::AlActivar() {
    if (std::exchange(m_vista, true))
        PonConsulta(SqlEnviadas(ElProceso(), MomentoEnviadas::Reactivacion));
}

} // namespace xa518
