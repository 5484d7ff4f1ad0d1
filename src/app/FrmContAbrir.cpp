#include "app/FrmContAbrir.h"

#include "app/DeclarationLists.h"
#include "family/Process.h"
#include "widgets/Application.h"
#include "widgets/ReadGrid.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool EscribeAlgo(const QKeyEvent& tecla) {
    return !tecla.text().isEmpty() && tecla.text().front().isPrint();
}

} // namespace

FrmContAbrir::FrmContAbrir(const Entorno& entorno, OpcionDeLista opcion, QWidget* padre)
    : FormaSeleccion(entorno, opcion,
                     {u"RUC"_s, u"Nombre o razón social"_s, u"Período"_s, u"Form."_s, u"Estado"_s, u"Rectifica"_s},
                     u"Declaraciones Registradas"_s, padre) {
    setObjectName(u"FrmContAbrir"_s);
    if (opcion == OpcionDeLista::Eliminar)
        Presenta({u"Eliminar Declaraciones"_s, u"&Eliminar"_s, u"Seleccione la Declaración que desea eliminar :"_s});
    else
        Presenta({u"Modificar Declaraciones"_s, u"&Modificar"_s, u"Seleccione la Declaración que desea modificar :"_s});
    Grilla().installEventFilter(this);
    connect(Grilla().horizontalHeader(), &QHeaderView::sectionClicked, this,
            Protegido([this](int columna) { Ordena(columna); }));
    PonConsulta(SqlRegistradas(ElProceso()));
    Refresca();
}

/// Only the number's and the name's column heads order the list; the others do nothing.
void FrmContAbrir::Ordena(int columna) {
    if (columna != ColumnaDeLista::Ruc && columna != ColumnaDeLista::Nombre)
        return;
    const bool porRuc = columna == ColumnaDeLista::Ruc;
    PonConsulta(SqlRegistradas(ElProceso(), porRuc ? OrdenRegistradas::Ruc : OrdenRegistradas::Nombre));
    Refresca();
}

/// A key that would type something is dropped before the grid looks for it in the list.
bool FrmContAbrir::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == &Grilla() && evento->type() == QEvent::KeyPress && EscribeAlgo(*static_cast<QKeyEvent*>(evento)))
        return true;
    return FormaSeleccion::eventFilter(objeto, evento);
}

} // namespace xa518
