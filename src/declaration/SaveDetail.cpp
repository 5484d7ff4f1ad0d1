#include "data/Base.h"
#include "data/RecordChecksum.h"
#include "declaration/ClientGrid.h"
#include "declaration/Save.h"
#include "form518/Form0518.h"
#include "form518/WorkTables.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QStringList kNombresEmpresa = {u"des_razon"_s};
const QStringList kNombresPersona = {u"des_apellido_p"_s, u"des_apellido_m"_s, u"des_nombres"_s};

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
    base.Ejecuta(u"DELETE * FROM F518PCAB "_s + clave.Condicion(), clave.Valores());
    const Tabla& tabla = base.Describe(u"F518PCAB"_s);
    const Registro plantilla = ConClave(tabla, clave);
    const int numericas = Formulario0518().NumericasDe(tabla.nombre);
    const TablasTrabajo trabajo(base);
    {
        Registros clientes = base.Lee(SqlClientes());
        const CopiaColumnas comunes(clientes, tabla,
                                    {u"tip_doc_per"_s, u"num_doc_per"_s, u"mto_base_p"_s, u"mto_imp_p"_s});
        const CopiaColumnas empresa(clientes, tabla, kNombresEmpresa);
        const CopiaColumnas persona(clientes, tabla, kNombresPersona);
        const int tipo = clientes.Columna(u"tip_doc_per");
        const int numero = clientes.Columna(u"num_doc_per");
        const int ctdDocs = tabla.Indice(u"ctd_docs");
        const int indRuc = tabla.Indice(u"ind_ruc");
        while (clientes.Siguiente()) {
            Registro registro = plantilla;
            comunes.Copia(clientes, registro);
            const bool esEmpresa = EsEmpresa(clientes.Texto(tipo), clientes.Texto(numero));
            (esEmpresa ? empresa : persona).Copia(clientes, registro);
            registro.Pon(ctdDocs, trabajo.CuentaDocs(static_cast<int>(clientes.Entero(tipo)), clientes.Texto(numero)));
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
    const int numericas = Formulario0518().NumericasDe(copia.tabla);
    Registro registro = ConClave(tabla, clave);
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

QStringList ColumnasComprobante(const QStringList& trasNumero) {
    return QStringList{u"tip_doc_per"_s, u"num_doc_per"_s, u"num_serie_cp"_s, u"num_cp"_s} + trasNumero +
           QStringList{u"cp_fact"_s,    u"lista_clie"_s, u"med_pago"_s,  u"fec_emision_cp"_s,
                       u"mto_base_p"_s, u"mto_imp_p"_s,  u"por_tasa_p"_s};
}

} // namespace

void GrabaDetalle(Base& base, const ClaveDeclaracion& clave) {
    GrabaClientes(base, clave);
    GrabaCopia(
        base, clave,
        {u"F518PDET"_s, u"SELECT * FROM TMPF518PDET WHERE TIP_CP = ''"_s, clave.Condicion(), ColumnasComprobante({})});
    GrabaCopia(base, clave,
               {u"F518PDETVC"_s, u"SELECT * FROM TMPF518PDET WHERE TIP_CP <> ''"_s, clave.Condicion(),
                ColumnasComprobante({u"tip_cp"_s})});
    GrabaCopia(base, clave,
               {u"F518PDETCP"_s,
                u"SELECT * FROM TMPF518PDETCP"_s,
                clave.CondicionSinTipo(),
                {u"tip_doc_per"_s, u"num_doc_per"_s, u"num_serie_cp"_s, u"num_cp"_s, u"tip_doc_detcp"_s,
                 u"num_serie_detcp"_s, u"num_detcp"_s, u"fec_emis_detcp"_s, u"mto_detcp"_s}});
}

} // namespace xa518
