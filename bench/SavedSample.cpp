#include "SavedSample.h"

#include "data/Transaction.h"
#include "declaration/ClientGrid.h"
#include "declaration/Save.h"

#include <stdexcept>

namespace xa518::medida {

using namespace Qt::StringLiterals;

namespace {

/// The work tables of a declaration of that size.
void LlenaTrabajo(Base& base, const Detalle& detalle) {
    Transaccion transaccion = base.Comienza();
    for (int i = 0; i < detalle.clientes; ++i)
        base.Ejecuta(u"INSERT INTO TMPF518PCAB VALUES (6,?,'COMERCIAL DEL VALLE Y HERMANOS S.A.C.',' ',' ',' ','1',"
                     "'1250.40','25.01',NULL)"_s,
                     {QString::number(20500000000 + i)});
    for (int i = 0; i < detalle.comprobantes; ++i) {
        const QString numero = QString::number(20500000000 + i % detalle.clientes);
        const QString cp = QString::number(i + 1).rightJustified(8, u'0');
        base.Ejecuta(
            u"INSERT INTO TMPF518PDET VALUES (6,?,'0001',?,'','1','0','9','05/10/2026','500.20','10.00','2.00')"_s,
            {numero, cp});
        base.Ejecuta(u"INSERT INTO TMPF518PDETCP VALUES (6,?,'0001',?,'01','F001',?,'05/10/2026','500.20')"_s,
                     {numero, cp, cp});
    }
    transaccion.Confirma();
}

} // namespace

TallerGuardado::TallerGuardado(const Detalle& detalle) {
    base.Param(u"044"_s, u"6"_s, prueba::Funcion({{32, u"RUC"_s}, {46, u"11"_s}}));
    LlenaTrabajo(*base, detalle);
}

void Graba(Base& base) {
    Declaracion declaracion;
    declaracion.clave = kClave;
    RefrescaTotales(base, declaracion);
    declaracion.montos.Cambia(410, declaracion.montos.Texto(405));
    declaracion.pago = {.forma = FormaDePago::Efectivo, .importe = declaracion.montos.ImportePagar()};
    declaracion.rectifica = Rectificacion::No;
    const Firma firma{.usuario = u"ANA"_s, .equipo = u"CAJA-2"_s, .momento = QDate(2026, 11, 1).startOfDay()};
    if (GrabaDeclaracion(base, declaracion, EstadoGuardado::De(base, kClave), firma).estado != 0)
        throw std::runtime_error("the save was not clean");
}

} // namespace xa518::medida
