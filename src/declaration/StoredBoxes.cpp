#include "declaration/StoredBoxes.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "form518/Form0518.h"
#include "form518/FormCatalogs.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

void CargaPago(Base& base, Declaracion& declaracion) {
    const ClaveDeclaracion& clave = declaracion.clave;
    Registros fila = base.Lee(u"SELECT * FROM %1 %2"_s.arg(clave.Tabla(u"CAB"_s), clave.Condicion()), clave.Valores());
    if (!fila.Siguiente())
        return;
    declaracion.pago.banco = Recorta(fila.Texto(u"bcolibrad")).toString();
    declaracion.pago.numeroCheque = Recorta(fila.Texto(u"nrocheque")).toString();
}

} // namespace

void GrabaCasilla(Base& base, const ClaveDeclaracion& clave, const CasillaGuardada& guardada) {
    GrabaCasilla(base, Formulario0518().casillas, clave, guardada);
}

void GrabaCasillaParam(Base& base, const ClaveDeclaracion& clave) {
    const QString funcion = Catalogo(base).Funcion(u"856"_s, clave.formulario);
    const QString casilla = Recorta(TramosCasilla::kCasilla.Corta(funcion)).toString();
    if (!casilla.isEmpty())
        GrabaCasilla(base, clave, {.casilla = casilla, .valor = TramosCasilla::kValor.Corta(funcion).toString()});
}

void MuestraCasilla(Declaracion& declaracion, const CasillaGuardada& guardada) {
    const auto& [casilla, valor] = guardada;
    const int numero = casilla.toInt();
    if (numero == 871)
        declaracion.rectifica = RectificacionDe(valor);
    else if (const FormaDePago forma = FormaDeLetra(valor); numero == 999 && forma != FormaDePago::SinElegir)
        declaracion.pago.forma = forma;
    else if (Montos::EsDeMonto(numero))
        declaracion.montos.Cambia(numero, TextoDeGuardado(numero, valor));
}

void CargaCasillas(Base& base, Declaracion& declaracion) {
    const ClaveDeclaracion& clave = declaracion.clave;
    // In the order in which they were saved, so that a stored result comes after the arithmetic that it answers.
    const QString tabla = clave.Tabla(u"DET"_s);
    Registros filas =
        base.Lee(u"SELECT * FROM %1 %2 ORDER BY %3"_s.arg(tabla, clave.CondicionSinTipo(), base.NumeroDeFila(tabla)),
                 clave.Valores());
    const int casilla = filas.Columna(u"Casilla");
    const int valor = filas.Columna(u"i_valor");
    while (filas.Siguiente())
        MuestraCasilla(declaracion, {Recorta(filas.Texto(casilla)).toString(), Recorta(filas.Texto(valor)).toString()});
    declaracion.pago.importe = declaracion.montos.ImportePagar();
    CargaPago(base, declaracion);
}

} // namespace xa518
