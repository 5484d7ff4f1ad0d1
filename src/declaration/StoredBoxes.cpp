#include "declaration/StoredBoxes.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "data/RecordChecksum.h"
#include "values/Format.h"
#include "values/Text.h"

#include <QSet>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Boxes whose value is stored as given. 501 and 503 are among them and 502 isn't, so that 502 is formatted twice;
/// the bank in 015 isn't either and loses its leading zero. Wanted: the receiver reads them so.
const QSet<QString>& CasillasTalCual() {
    static const QSet<QString> casillas = {u"012"_s, u"005"_s, u"721"_s, u"987"_s, u"986"_s, u"985"_s,
                                           u"984"_s, u"983"_s, u"720"_s, u"722"_s, u"723"_s, u"724"_s,
                                           u"725"_s, u"726"_s, u"727"_s, u"728"_s, u"729"_s, u"871"_s,
                                           u"500"_s, u"501"_s, u"503"_s, u"506"_s, u"790"_s};
    return casillas;
}

QString ValorGuardado(const QString& casilla, const QString& valor) {
    return CasillasTalCual().contains(casilla) ? valor : Format(valor, u"###########0");
}

QString TextoDeSuma(const Registros& fila, int columna) {
    return fila.EsNulo(columna) ? u"0"_s : fila.Texto(columna);
}

void CargaPago(Base& base, Declaracion& declaracion) {
    const ClaveDeclaracion& clave = declaracion.clave;
    Registros fila = base.Lee(u"SELECT * FROM %1 %2"_s.arg(clave.Tabla(u"CAB"_s), clave.Condicion()), clave.Valores());
    if (!fila.Siguiente())
        return;
    declaracion.pago.banco = Recorta(fila.Texto(u"bcolibrad")).toString();
    declaracion.pago.numeroCheque = Recorta(fila.Texto(u"nrocheque")).toString();
}

} // namespace

void GrabaCasilla(Base& base, const ClaveDeclaracion& clave, const QString& casilla, const QString& valor) {
    const QString recortado = Recorta(valor).toString();
    if (recortado.isEmpty() || clave.ruc.EstaVacio())
        return;
    const QString condicion = clave.CondicionSinTipo() + u" AND CASILLA=?"_s;
    const QVariantList valores = clave.Valores() << casilla;
    const std::optional<Registro> guardado = base.Busca(u"DET"_s, condicion, valores);
    Registro registro = guardado.value_or(Registro(base.Describe(u"DET"_s)));
    registro.Pon(u"Doc_id_d", clave.ruc.Texto())
        .Pon(u"tip_doc_d", 6)
        .Pon(u"periodo", clave.periodo.Texto())
        .Pon(u"Formulario", clave.formulario)
        .Pon(u"Casilla", casilla)
        .Pon(u"i_valor", ValorGuardado(casilla, recortado))
        .Pon(u"idcasilla", casilla == u"410" ? u"05"_s : u"01"_s);
    PonChecksum(registro);
    if (guardado)
        base.Actualiza(registro, condicion, valores);
    else
        base.Agrega(registro);
}

void GrabaCasillaParam(Base& base, const ClaveDeclaracion& clave) {
    const QString funcion = Catalogo(base).Funcion(u"856"_s, clave.formulario);
    const QString casilla = Recorta(Mid(funcion, 20, 3)).toString();
    if (!casilla.isEmpty())
        GrabaCasilla(base, clave, casilla, Mid(funcion, 5, 10).toString());
}

SumasDetalle Get_Data(Base& base, const QString& tabla, const ClaveDeclaracion& clave) {
    const bool conPercepcion = tabla != u"F518PDETCP";
    const QString sumas = conPercepcion ? u"SUM(mto_base_p*1) as sBase, SUM(mto_imp_p*1) as sRetencion "_s
                                        : u"SUM(mto_detcp*1) as sBase "_s;
    Registros fila = base.Lee(u"SELECT Count(*) as sCant, "_s + sumas + u"FROM %1 "_s.arg(tabla) + clave.Condicion(),
                              clave.Valores());
    if (!fila.Siguiente())
        return {u"0"_s, u"0"_s, u"0"_s};
    return {fila.Texto(0), TextoDeSuma(fila, 1), conPercepcion ? TextoDeSuma(fila, 2) : u"0"_s};
}

void MuestraCasilla(Declaracion& declaracion, const QString& casilla, const QString& valor) {
    const int numero = casilla.toInt();
    if (numero == 871)
        declaracion.rectifica = valor;
    else if (numero == 999 && (valor == u"E" || valor == u"C"))
        declaracion.pago.forma = valor;
    else if (Montos::EsDeMonto(numero))
        declaracion.montos.Cambia(numero, TextoDeGuardado(numero, valor));
}

void CargaCasillas(Base& base, Declaracion& declaracion) {
    const ClaveDeclaracion& clave = declaracion.clave;
    // In the order in which they were saved, so that a stored result comes after the arithmetic that it answers.
    Registros filas = base.Lee(
        u"SELECT * FROM %1 %2 ORDER BY rowid"_s.arg(clave.Tabla(u"DET"_s), clave.CondicionSinTipo()), clave.Valores());
    const int casilla = filas.Columna(u"Casilla");
    const int valor = filas.Columna(u"i_valor");
    while (filas.Siguiente())
        MuestraCasilla(declaracion, Recorta(filas.Texto(casilla)).toString(), Recorta(filas.Texto(valor)).toString());
    declaracion.pago.importe = declaracion.montos.ImportePagar();
    CargaPago(base, declaracion);
}

} // namespace xa518
