#include "form518/SavedDetail.h"

#include "data/Base.h"
#include "data/RecordChecksum.h"
#include "form518/DetailColumns.h"
#include "form518/Form0518.h"
#include "form518/WorkClients.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPagosGuardados = u"F518PDETCP"_s;
const QString kComprobantesDeTrabajo = u"TMPF518PDET"_s;
const QString kPagosDeTrabajo = u"TMPF518PDETCP"_s;

QList<DatoDeCopia> DeLaClave(const ClaveDeclaracion& clave) {
    return {{u"tip_doc_d"_s, u"6"_s},
            {u"Doc_id_d"_s, u"?"_s, {clave.ruc.Texto()}},
            {u"periodo"_s, u"?"_s, {clave.periodo.Texto()}},
            {u"Formulario"_s, u"?"_s, {clave.formulario}}};
}

/// Wanted: the family's programs open an empty set on each table after rewriting it.
void AbreVacia(Base& base, const QString& tabla) {
    const Registros vacia = base.Lee(u"SELECT * FROM %1 WHERE doc_id_d='0'"_s.arg(tabla));
}

/// How many vouchers the client of the row A has. Its number may be written in several ways; each count is found by the
/// vouchers' key, which counts that were taken beforehand don't have.
QString CuentaDeComprobantes() {
    using enum DatoComprobante;
    return u"(SELECT count(*) FROM %1 AS C WHERE C.%2 = A.%2 AND C.%3 = A.%3)"_s.arg(
        kComprobantesDeTrabajo, ColumnaDe(TipoDoc), ColumnaDe(NumDoc));
}

/// A company keeps its name, a person the three parts; the other columns stay null. The count of vouchers is taken
/// anew, and `ind_ruc` is 1 for every client, whatever its document.
void GrabaClientes(Base& base, const ClaveDeclaracion& clave) {
    using enum DatoCliente;
    const QString tabla = u"F518PCAB"_s;
    base.Ejecuta(u"DELETE * FROM F518PCAB "_s + clave.Condicion(), clave.Valores());
    const QString esEmpresa = u"(A.%1 = 6 AND mid(A.%2, 1, 2) = '20')"_s.arg(ColumnaDe(TipoDoc), ColumnaDe(NumDoc));
    QList<DatoDeCopia> datos = DeLaClave(clave);
    const auto copia = [&datos](DatoCliente dato, const QString& expresion) {
        datos.append({ColumnaDe(dato), expresion.arg(u"A."_s + ColumnaDe(dato))});
    };
    for (const DatoCliente dato : {TipoDoc, NumDoc, MontoBase, Percepcion})
        copia(dato, u"%1"_s);
    copia(Razon, u"CASE WHEN "_s + esEmpresa + u" THEN %1 END"_s);
    for (const DatoCliente dato : {ApellidoP, ApellidoM, Nombres})
        copia(dato, u"CASE WHEN NOT "_s + esEmpresa + u" THEN %1 END"_s);
    datos.append({ColumnaDe(CtdDocs), CuentaDeComprobantes()});
    datos.append({ColumnaDe(IndRuc), u"1"_s});
    const ConsultaDeLista clientes = SqlClientes();
    const QString desde = u"%1 WHERE %2 ORDER BY %3"_s.arg(clientes.desde, clientes.vinculo, base.NumeroDeFila(u"A"_s));
    CopiaConChecksum(base, {tabla, datos, desde}, Formulario0518().NumericasDe(tabla));
    AbreVacia(base, tabla);
}

/// A detail table that is copied column by column.
struct Copia {
    QString tabla;
    QString trabajo;   ///< whose rows are copied
    QString origen;    ///< "FROM ... WHERE ..."
    QString condicion; ///< of the delete
    QStringList columnas;
};

void GrabaCopia(Base& base, const ClaveDeclaracion& clave, const Copia& copia) {
    base.Ejecuta(u"DELETE * FROM %1 "_s.arg(copia.tabla) + copia.condicion, clave.Valores());
    QList<DatoDeCopia> datos = DeLaClave(clave);
    for (const QString& columna : copia.columnas)
        datos.append({columna, columna});
    CopiaConChecksum(base, {copia.tabla, datos, copia.origen + u" ORDER BY "_s + base.NumeroDeFila(copia.trabajo)},
                     Formulario0518().NumericasDe(copia.tabla));
    AbreVacia(base, copia.tabla);
}

QStringList ColumnasSinTipo() {
    QStringList columnas = ColumnasDe(DatosDeComprobantes());
    columnas.removeOne(ColumnaDe(DatoComprobante::TipCp));
    return columnas;
}

/// The vouchers of the work table, by what its column of the type has to be.
QString Comprobantes(const QString& condicion) {
    return u"FROM %1 WHERE %2 %3"_s.arg(kComprobantesDeTrabajo, ColumnaDe(DatoComprobante::TipCp), condicion);
}

QString TextoDeSuma(const Registros& fila, int columna) {
    return fila.EsNulo(columna) ? u"0"_s : fila.Texto(columna);
}

} // namespace

void GrabaDetalle(Base& base, const ClaveDeclaracion& clave) {
    GrabaClientes(base, clave);
    GrabaCopia(base, clave,
               {.tabla = u"F518PDET"_s,
                .trabajo = kComprobantesDeTrabajo,
                .origen = Comprobantes(u"= ''"_s),
                .condicion = clave.Condicion(),
                .columnas = ColumnasSinTipo()});
    GrabaCopia(base, clave,
               {.tabla = u"F518PDETVC"_s,
                .trabajo = kComprobantesDeTrabajo,
                .origen = Comprobantes(u"<> ''"_s),
                .condicion = clave.Condicion(),
                .columnas = ColumnasDe(DatosDeComprobantes())});
    GrabaCopia(base, clave,
               {.tabla = kPagosGuardados,
                .trabajo = kPagosDeTrabajo,
                .origen = u"FROM "_s + kPagosDeTrabajo,
                .condicion = clave.CondicionSinTipo(),
                .columnas = ColumnasDe(DatosDePagos())});
}

SumasDetalle Get_Data(Base& base, const QString& tabla, const ClaveDeclaracion& clave) {
    const bool conPercepcion = tabla != kPagosGuardados;
    const QString sumas = conPercepcion
                              ? SumaDe(DatoComprobante::MontoBase) + u", "_s + SumaDe(DatoComprobante::Percepcion)
                              : SumaDe(DatoPago::Monto);
    Registros fila =
        base.Lee(u"SELECT Count(*) as sCant, %1 FROM %2 %3"_s.arg(sumas, tabla, clave.Condicion()), clave.Valores());
    if (!fila.Siguiente())
        return {.cantidad = u"0"_s, .base = u"0"_s, .percepcion = u"0"_s};
    return {.cantidad = fila.Texto(0),
            .base = TextoDeSuma(fila, 1),
            .percepcion = conPercepcion ? TextoDeSuma(fila, 2) : u"0"_s};
}

} // namespace xa518
