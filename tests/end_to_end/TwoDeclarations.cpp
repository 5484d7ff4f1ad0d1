#include "end_to_end/TwoDeclarations.h"

#include "data/Transaction.h"
#include "declaration/ClientGrid.h"
#include "declaration/Save.h"

namespace xa518::prueba {

using namespace Qt::StringLiterals;

namespace {

constexpr int kClientes = 150;

void LlenaTrabajo(Base& base, const QString& monto) {
    Transaccion transaccion = base.Comienza();
    for (const QString& tabla : {u"TMPF518PCAB"_s, u"TMPF518PDET"_s, u"TMPF518PDETCP"_s})
        base.Ejecuta(u"DELETE * FROM "_s + tabla);
    for (int i = 0; i < kClientes; ++i) {
        const QString numero = QString::number(20500000000 + i);
        base.Ejecuta(u"INSERT INTO TMPF518PCAB VALUES (6,?,'EMPRESA',' ',' ',' ','1',?,?,NULL)"_s,
                     {numero, monto, monto});
        for (const QString& tipCp : {u""_s, u"01"_s})
            base.Ejecuta(
                u"INSERT INTO TMPF518PDET VALUES (6,?,'0001','00000001',?,'1','0','9','05/10/2026',?,?,'2.00')"_s,
                {numero, tipCp, monto, monto});
        base.Ejecuta(
            u"INSERT INTO TMPF518PDETCP VALUES (6,?,'0001','00000001','01','0001','00000009','05/10/2026',?)"_s,
            {numero, monto});
    }
    transaccion.Confirma();
}

} // namespace

void GrabaTrabajo(Base& base, const ClaveDeclaracion& clave, const QString& forma, const QString& rectifica) {
    Declaracion declaracion;
    declaracion.clave = clave;
    RefrescaTotales(base, declaracion);
    declaracion.montos.Cambia(410, declaracion.montos.Texto(405));
    declaracion.pago = {forma, u"02"_s, u"17"_s, declaracion.montos.ImportePagar()};
    declaracion.rectifica = rectifica;
    (void)GrabaDeclaracion(base, declaracion, QDate(2026, 11, 21));
}

void GrabaContenido(Base& base, Contenido contenido) {
    const bool esUno = contenido == Contenido::Uno;
    LlenaTrabajo(base, esUno ? u"100.00"_s : u"250.50"_s);
    GrabaTrabajo(base, {u"20100000009"_s, u"202610"_s, kNumFormulario, false, {}}, esUno ? u"E"_s : u"C"_s,
                 esUno ? u"0"_s : u"1"_s);
}

} // namespace xa518::prueba
