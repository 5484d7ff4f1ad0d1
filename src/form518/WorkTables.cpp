#include "form518/WorkTables.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Rows keep the order in which they were entered, so every copy follows the source's own order.
QString CopiaSql(const QString& destino, const QString& columnas, const QString& valores, const QString& origen,
                 const QString& condicion) {
    return u"INSERT INTO %1 (%2) SELECT %3 FROM %4 %5 ORDER BY rowid"_s.arg(destino, columnas, valores, origen,
                                                                            condicion);
}

Importe SoloPositivo(Importe total) {
    return total.Signo() < 0 ? Importe() : total;
}

} // namespace

bool EsEmpresa(QStringView tipoDoc, QStringView numero) {
    return Decimal::Valor(tipoDoc) == Decimal::DeEntero(6) && numero.startsWith(u"20");
}

void TablasTrabajo::Reconstruye(const ClaveDeclaracion& clave) {
    Transaccion transaccion = m_base->Comienza();
    Llena(clave);
    transaccion.Confirma();
}

void TablasTrabajo::Llena(const ClaveDeclaracion& clave) {
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB"_s);
    CopiaClientes(clave);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET"_s);
    CopiaComprobantes(clave, u"F518PDET"_s, u"''"_s);
    CopiaComprobantes(clave, u"F518PDETVC"_s, u"tip_cp"_s);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP"_s);
    CopiaPagos(clave);
}

/// A company keeps its name. Any other client is a person, whose full name is put together again from its parts.
void TablasTrabajo::CopiaClientes(const ClaveDeclaracion& clave) {
    const QString esEmpresa = u"(tip_doc_per = 6 AND left(num_doc_per, 2) = '20')"_s;
    const QString nombre = u"left(des_apellido_p & ' ' & des_apellido_m & ' ' & des_nombres, 40)"_s;
    const QString valores = u"tip_doc_per, num_doc_per, CASE WHEN %1 THEN des_razon ELSE %2 END, "
                            "CASE WHEN NOT %1 THEN des_apellido_p END, CASE WHEN NOT %1 THEN des_apellido_m END, "
                            "CASE WHEN NOT %1 THEN des_nombres END, ctd_docs, mto_base_p, mto_imp_p"_s;
    m_base->Ejecuta(CopiaSql(u"TMPF518PCAB"_s,
                             u"tip_doc_per, num_doc_per, des_razon, des_apellido_p, des_apellido_m, des_nombres, "
                             "ctd_docs, mto_base_p, mto_imp_p"_s,
                             valores.arg(esEmpresa, nombre), clave.Tabla(u"F518PCAB"_s), clave.Condicion()),
                    clave.Valores());
}

void TablasTrabajo::CopiaComprobantes(const ClaveDeclaracion& clave, const QString& tabla, const QString& tipoCp) {
    const QString columnas = u"tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp, cp_fact, lista_clie, med_pago, "
                             "fec_emision_cp, mto_base_p, mto_imp_p, por_tasa_p"_s;
    const QString valores = QString(columnas).replace(u"tip_cp"_s, tipoCp);
    m_base->Ejecuta(CopiaSql(u"TMPF518PDET"_s, columnas, valores, clave.Tabla(tabla), clave.Condicion()),
                    clave.Valores());
}

void TablasTrabajo::CopiaPagos(const ClaveDeclaracion& clave) {
    const QString columnas = u"tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_doc_detcp, num_serie_detcp, "
                             "num_detcp, fec_emis_detcp, mto_detcp"_s;
    m_base->Ejecuta(
        CopiaSql(u"TMPF518PDETCP"_s, columnas, columnas, clave.Tabla(u"F518PDETCP"_s), clave.CondicionSinTipo()),
        clave.Valores());
}

int TablasTrabajo::CuentaDocs(int tipoDoc, const QString& numero) const {
    Registros fila = m_base->Lee(u"SELECT count(*) as cont FROM TMPF518PDET "
                                 "WHERE TIP_DOC_PER = ? AND NUM_DOC_PER = ?"_s,
                                 {tipoDoc, numero});
    return fila.Siguiente() ? static_cast<int>(fila.Entero(0)) : 0;
}

TablasTrabajo::Totales TablasTrabajo::TotalesDeClientes() const {
    const auto monto = [](const QString& texto) { return Importe::Valor(Format(texto, u"###########0.#0")); };
    Totales totales;
    Registros filas = m_base->Lee(u"SELECT MTO_BASE_P, MTO_IMP_P FROM TMPF518PCAB"_s);
    while (filas.Siguiente()) {
        totales.base += monto(filas.Texto(0));
        totales.percepcion += monto(filas.Texto(1));
    }
    return totales;
}

void TablasTrabajo::CalculaTotales() {
    Transaccion transaccion = m_base->Comienza();
    {
        Registros clientes = m_base->Lee(u"SELECT * FROM TMPF518PCAB"_s);
        const int tipo = clientes.Columna(u"tip_doc_per");
        const int numero = clientes.Columna(u"num_doc_per");
        while (clientes.Siguiente())
            CalculaTotalesDe(clientes.Valor(tipo), clientes.Valor(numero));
    }
    // Wanted: the family's programs open an empty set on each table after a rewrite; it costs nothing.
    const Registros vacia = m_base->Lee(u"SELECT * FROM F518PDET WHERE doc_id_d='0'"_s);
    transaccion.Confirma();
}

void TablasTrabajo::CalculaTotalesDe(const QVariant& tipoDoc, const QVariant& numero) {
    Totales totales;
    {
        Registros suma = m_base->Lee(u"SELECT sum(mto_base_p * 1) as TotBase, sum(mto_imp_p * 1) as TotImp "
                                     "FROM TMPF518PDET WHERE  tip_doc_per=? and  num_doc_per=?"_s,
                                     {tipoDoc, numero});
        if (suma.Siguiente())
            totales = {SoloPositivo(Importe::Valor(suma.Texto(0))), SoloPositivo(Importe::Valor(suma.Texto(1)))};
    }
    m_base->Ejecuta(u"UPDATE TMPF518PCAB SET mto_base_p=?, mto_imp_p=? WHERE tip_doc_per=? AND num_doc_per=?"_s,
                    {totales.base.Texto(), totales.percepcion.Texto(), tipoDoc, numero});
}

void TablasTrabajo::EliminaCliente(int tipoDoc, const QString& numero) {
    const QVariantList cliente{tipoDoc, numero};
    Transaccion transaccion = m_base->Comienza();
    m_base->Ejecuta(u"DELETE * FROM TMPF518PCAB WHERE TIP_DOC_PER=? AND NUM_DOC_PER=?"_s, cliente);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDET WHERE TIP_DOC_PER=? AND NUM_DOC_PER=?"_s, cliente);
    m_base->Ejecuta(u"DELETE * FROM TMPF518PDETCP WHERE TIP_DOC_PER=? AND NUM_DOC_PER=?"_s, cliente);
    transaccion.Confirma();
}

} // namespace xa518
