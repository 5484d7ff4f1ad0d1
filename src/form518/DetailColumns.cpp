#include "form518/DetailColumns.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QString ColumnaDe(DatoCliente dato) {
    switch (dato) {
    case DatoCliente::TipoDoc: return u"tip_doc_per"_s;
    case DatoCliente::NumDoc: return u"num_doc_per"_s;
    case DatoCliente::Razon: return u"des_razon"_s;
    case DatoCliente::ApellidoP: return u"des_apellido_p"_s;
    case DatoCliente::ApellidoM: return u"des_apellido_m"_s;
    case DatoCliente::Nombres: return u"des_nombres"_s;
    case DatoCliente::CtdDocs: return u"ctd_docs"_s;
    case DatoCliente::MontoBase: return u"mto_base_p"_s;
    case DatoCliente::Percepcion: return u"mto_imp_p"_s;
    case DatoCliente::IndRuc: return u"ind_ruc"_s;
    }
    return {};
}

QString ColumnaDe(DatoComprobante dato) {
    switch (dato) {
    case DatoComprobante::TipoDoc: return u"tip_doc_per"_s;
    case DatoComprobante::NumDoc: return u"num_doc_per"_s;
    case DatoComprobante::Serie: return u"num_serie_cp"_s;
    case DatoComprobante::Numero: return u"num_cp"_s;
    case DatoComprobante::TipCp: return u"tip_cp"_s;
    case DatoComprobante::CpFact: return u"cp_fact"_s;
    case DatoComprobante::ListaClie: return u"lista_clie"_s;
    case DatoComprobante::MedPago: return u"med_pago"_s;
    case DatoComprobante::Fecha: return u"fec_emision_cp"_s;
    case DatoComprobante::MontoBase: return u"mto_base_p"_s;
    case DatoComprobante::Percepcion: return u"mto_imp_p"_s;
    case DatoComprobante::Tasa: return u"por_tasa_p"_s;
    }
    return {};
}

QString ColumnaDe(DatoPago dato) {
    switch (dato) {
    case DatoPago::TipoDoc: return u"tip_doc_per"_s;
    case DatoPago::NumDoc: return u"num_doc_per"_s;
    case DatoPago::SerieCp: return u"num_serie_cp"_s;
    case DatoPago::NumeroCp: return u"num_cp"_s;
    case DatoPago::Tipo: return u"tip_doc_detcp"_s;
    case DatoPago::Serie: return u"num_serie_detcp"_s;
    case DatoPago::Numero: return u"num_detcp"_s;
    case DatoPago::Fecha: return u"fec_emis_detcp"_s;
    case DatoPago::Monto: return u"mto_detcp"_s;
    }
    return {};
}

const QList<DatoCliente>& ClaveDeClientes() {
    using enum DatoCliente;
    static const QList<DatoCliente> clave = {TipoDoc, NumDoc};
    return clave;
}

const QList<DatoComprobante>& ClaveDeComprobantes() {
    using enum DatoComprobante;
    static const QList<DatoComprobante> clave = {TipoDoc, NumDoc, Serie, Numero, TipCp};
    return clave;
}

const QList<DatoPago>& ClaveDePagos() {
    using enum DatoPago;
    static const QList<DatoPago> clave = {TipoDoc, NumDoc, SerieCp, NumeroCp, Tipo, Serie, Numero};
    return clave;
}

const QList<DatoComprobante>& DatosDeComprobantes() {
    using enum DatoComprobante;
    static const QList<DatoComprobante> datos = {TipoDoc,   NumDoc,  Serie, Numero,    TipCp,      CpFact,
                                                 ListaClie, MedPago, Fecha, MontoBase, Percepcion, Tasa};
    return datos;
}

const QList<DatoPago>& DatosDePagos() {
    using enum DatoPago;
    static const QList<DatoPago> datos = {TipoDoc, NumDoc, SerieCp, NumeroCp, Tipo, Serie, Numero, Fecha, Monto};
    return datos;
}

} // namespace xa518
