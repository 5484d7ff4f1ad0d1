#include "form518/SavedDetail.h"

#include "data/Base.h"
#include "data/RecordChecksum.h"
#include "form518/DetailColumns.h"
#include "form518/Form0518.h"
#include "form518/WorkClients.h"
#include "form518/WorkTables.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kPagosGuardados = u"F518PDETCP"_s;

/// Copies columns of the clients' query into a saved row.
CopiaColumnas CopiaDe(const Registros& clientes, const Tabla& tabla, const QList<DatoCliente>& datos) {
    return {clientes, tabla, ColumnasDe(datos)};
}

Registro ConClave(const Tabla& tabla, const ClaveDeclaracion& clave) {
    Registro registro(tabla);
    registro.Pon(u"tip_doc_d", 6)
        .Pon(u"Doc_id_d", clave.ruc.Texto())
        .Pon(u"periodo", clave.periodo.Texto())
        .Pon(u"Formulario", clave.formulario);
    return registro;
}

/// Wanted: the family's programs open an empty set on each table after rewriting it.
void AbreVacia(Base& base, const QString& tabla) {
    const Registros vacia = base.Lee(u"SELECT * FROM %1 WHERE doc_id_d='0'"_s.arg(tabla));
}

/// A company keeps its name, a person the three parts; the other columns stay null. The count of vouchers is taken
/// anew, and `ind_ruc` is 1 for every client, whatever its document.
void GrabaClientes(Base& base, const ClaveDeclaracion& clave) {
    using enum DatoCliente;
    base.Ejecuta(u"DELETE * FROM F518PCAB "_s + clave.Condicion(), clave.Valores());
    const Tabla& tabla = base.Describe(u"F518PCAB"_s);
    const Registro plantilla = ConClave(tabla, clave);
    const int numericas = Formulario0518().NumericasDe(tabla.nombre);
    const TablasTrabajo trabajo(base);
    {
        Registros clientes = base.Lee(SqlClientes());
        const CopiaColumnas comunes = CopiaDe(clientes, tabla, {TipoDoc, NumDoc, MontoBase, Percepcion});
        const CopiaColumnas empresa = CopiaDe(clientes, tabla, {Razon});
        const CopiaColumnas persona = CopiaDe(clientes, tabla, {ApellidoP, ApellidoM, Nombres});
        const int tipo = clientes.Columna(ColumnaDe(TipoDoc));
        const int numero = clientes.Columna(ColumnaDe(NumDoc));
        const int ctdDocs = tabla.Indice(ColumnaDe(CtdDocs));
        const int indRuc = tabla.Indice(ColumnaDe(IndRuc));
        while (clientes.Siguiente()) {
            Registro registro = plantilla;
            comunes.Copia(clientes, registro);
            const ClaveCliente cliente{.tipoDoc = CodigoDocumento::De(clientes.Texto(tipo)),
                                       .numero = clientes.Texto(numero)};
            const bool esEmpresa = EsEmpresa(cliente.tipoDoc, cliente.numero);
            (esEmpresa ? empresa : persona).Copia(clientes, registro);
            registro.Pon(ctdDocs, trabajo.CuentaDocs(cliente));
            registro.Pon(indRuc, 1);
            AgregaConChecksum(base, registro, numericas);
        }
    }
    AbreVacia(base, u"F518PCAB"_s);
}

/// A detail table that is copied column by column.
struct Copia {
    QString tabla;
    QString origen;
    QString condicion; ///< of the delete
    QStringList columnas;
};

void GrabaCopia(Base& base, const ClaveDeclaracion& clave, const Copia& copia) {
    base.Ejecuta(u"DELETE * FROM %1 "_s.arg(copia.tabla) + copia.condicion, clave.Valores());
    const Tabla& tabla = base.Describe(copia.tabla);
    Registro registro = ConClave(tabla, clave);
    const int numericas = Formulario0518().NumericasDe(copia.tabla);
    {
        Registros filas = base.Lee(copia.origen + u" ORDER BY rowid"_s);
        const CopiaColumnas columnas(filas, tabla, copia.columnas);
        while (filas.Siguiente()) {
            columnas.Copia(filas, registro);
            AgregaConChecksum(base, registro, numericas);
        }
    }
    AbreVacia(base, copia.tabla);
}

QStringList ColumnasSinTipo() {
    QStringList columnas = ColumnasDe(DatosDeComprobantes());
    columnas.removeOne(ColumnaDe(DatoComprobante::TipCp));
    return columnas;
}

/// The vouchers of the work table, by what its column of the type has to be.
QString SqlComprobantes(const QString& condicion) {
    return u"SELECT * FROM TMPF518PDET WHERE %1 %2"_s.arg(ColumnaDe(DatoComprobante::TipCp), condicion);
}

QString TextoDeSuma(const Registros& fila, int columna) {
    return fila.EsNulo(columna) ? u"0"_s : fila.Texto(columna);
}

} // namespace

void GrabaDetalle(Base& base, const ClaveDeclaracion& clave) {
    GrabaClientes(base, clave);
    GrabaCopia(base, clave,
               {.tabla = u"F518PDET"_s,
                .origen = SqlComprobantes(u"= ''"_s),
                .condicion = clave.Condicion(),
                .columnas = ColumnasSinTipo()});
    GrabaCopia(base, clave,
               {.tabla = u"F518PDETVC"_s,
                .origen = SqlComprobantes(u"<> ''"_s),
                .condicion = clave.Condicion(),
                .columnas = ColumnasDe(DatosDeComprobantes())});
    GrabaCopia(base, clave,
               {.tabla = kPagosGuardados,
                .origen = u"SELECT * FROM TMPF518PDETCP"_s,
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
