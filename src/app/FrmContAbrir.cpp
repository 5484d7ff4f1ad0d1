#include "app/FrmContAbrir.h"

#include "app/DeclarationLists.h"
#include "data/Process.h"

#include <QKeyEvent>

namespace xa518 {

using namespace Qt::StringLiterals;

FrmContAbrir::FrmContAbrir(const Entorno& entorno, QWidget* padre)
    : FormaSeleccion(entorno,
                     {u"RUC"_s, u"Nombre o razón social"_s, u"Período"_s, u"Formulario"_s, u"Estado"_s, u"Rectifica"_s},
                     u"Declaraciones Registradas"_s, padre) {
    setObjectName(u"FrmContAbrir"_s);
    if (ElProceso().opcion == kEliminar)
        Presenta({u"Eliminar Declaraciones"_s, u"&Eliminar"_s, u"Seleccione la Declaración que desea eliminar :"_s});
    else
        Presenta({u"Modificar Declaraciones"_s, u"&Modificar"_s, u"Seleccione la Declaración que desea modificar :"_s});
    PonConsulta(SqlRegistradas(ElProceso()));
    Refresca();
}

/// Nothing can be typed on the grid; the keys that move about in it type nothing.
bool FrmContAbrir::DejaPasar(const QKeyEvent& tecla) const {
    return tecla.text().isEmpty() || tecla.key() == Qt::Key_Tab || tecla.key() == Qt::Key_Backtab;
}

void FrmContAbrir::PulsaCabecera(int columna) {
    if (columna != ColumnaDeLista::Ruc && columna != ColumnaDeLista::Nombre)
        return;
    const bool porRuc = columna == ColumnaDeLista::Ruc;
    PonConsulta(SqlRegistradas(ElProceso(), porRuc ? OrdenRegistradas::Ruc : OrdenRegistradas::Nombre));
    Refresca();
}

} // namespace xa518
