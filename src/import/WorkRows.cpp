#include "import/WorkRows.h"

#include "import/FieldRules.h"
#include "values/Decimal.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What stands in a text column that a client of the other kind uses.
const QString kSinTexto = u" "_s;
const QString kSinRespuesta = u"9"_s;

/// First names, mother's surname, father's: wanted so, though elsewhere a person's name begins with the father's.
QString NombreCompleto(const LineaComprobada& linea) {
    const QString nombre =
        linea[Campo::Nombres] + u' ' + linea[Campo::ApellidoMaterno] + u' ' + linea[Campo::ApellidoPaterno];
    return nombre.left(kLargoRazon);
}

/// Wanted: the amount stays as the file has it; only a credit note is turned into a number, for its sign.
QString MontoDePago(const LineaComprobada& linea) {
    const QString& monto = linea[Campo::MontoCp];
    return linea.EsNotaDeCredito() ? Decimal::Valor(monto).Opuesto().Texto() : monto;
}

} // namespace

AltaCliente::AltaCliente(Base& base) : m_base(&base), m_fila(base.Describe(u"TMPF518PCAB"_s)) {
    const Tabla& tabla = m_fila.DeTabla();
    m_columnas = {.tipo = tabla.Indice(u"tip_doc_per"),
                  .numero = tabla.Indice(u"num_doc_per"),
                  .razon = tabla.Indice(u"des_razon"),
                  .paterno = tabla.Indice(u"des_apellido_p"),
                  .materno = tabla.Indice(u"des_apellido_m"),
                  .nombres = tabla.Indice(u"des_nombres")};
}

bool AltaCliente::Not_Seek_Cab_N(const LineaComprobada& linea) const {
    Registros fila = m_base->Lee(u"Select count(*) As nReg  from TMPF518PCAB "
                                 " where tip_doc_per = ? and num_doc_per = ?"_s,
                                 {linea.tipoDocPer, linea[Campo::NumDoc]});
    return !(fila.Siguiente() && fila.Entero(0) > 0);
}

void AltaCliente::Agrega(const LineaComprobada& linea) {
    m_fila.Pon(m_columnas.tipo, linea.tipoDocPer).Pon(m_columnas.numero, linea[Campo::NumDoc]);
    if (linea.clienteEsEmpresa)
        PonEmpresa(linea);
    else
        PonPersona(linea);
    m_base->Agrega(m_fila);
}

void AltaCliente::PonEmpresa(const LineaComprobada& linea) {
    m_fila.Pon(m_columnas.razon, linea[Campo::RazonSocial])
        .Pon(m_columnas.paterno, kSinTexto)
        .Pon(m_columnas.materno, kSinTexto)
        .Pon(m_columnas.nombres, kSinTexto);
}

void AltaCliente::PonPersona(const LineaComprobada& linea) {
    m_fila.Pon(m_columnas.razon, NombreCompleto(linea))
        .Pon(m_columnas.paterno, linea[Campo::ApellidoPaterno])
        .Pon(m_columnas.materno, linea[Campo::ApellidoMaterno])
        .Pon(m_columnas.nombres, linea[Campo::Nombres]);
}

AltaComprobante::AltaComprobante(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_base(&base), m_tasa(base, periodoDeclarado, fechaPrimerIgv), m_fila(base.Describe(u"TMPF518PDET"_s)) {
    const Tabla& tabla = m_fila.DeTabla();
    m_columnas = {.tipo = tabla.Indice(u"tip_doc_per"),
                  .numero = tabla.Indice(u"num_doc_per"),
                  .serie = tabla.Indice(u"num_serie_cp"),
                  .cp = tabla.Indice(u"num_cp"),
                  .tipCp = tabla.Indice(u"tip_cp"),
                  .credito = tabla.Indice(u"cp_fact"),
                  .lista = tabla.Indice(u"lista_clie"),
                  .medPago = tabla.Indice(u"med_pago"),
                  .fecha = tabla.Indice(u"fec_emision_cp"),
                  .base = tabla.Indice(u"mto_base_p"),
                  .percepcion = tabla.Indice(u"mto_imp_p"),
                  .tasa = tabla.Indice(u"por_tasa_p")};
}

void AltaComprobante::Agrega(const LineaComprobada& linea, const QString& tipCp) {
    m_fila.Pon(m_columnas.tipo, linea.tipoDocPer)
        .Pon(m_columnas.numero, linea[Campo::NumDoc])
        .Pon(m_columnas.serie, linea[Campo::SeriePercepcion])
        .Pon(m_columnas.cp, linea[Campo::NumeroPercepcion])
        .Pon(m_columnas.tipCp, tipCp)
        .Pon(m_columnas.fecha, linea[Campo::FechaEmision]);
    PonRespuestas(linea);
    PonMontos(linea);
    m_base->Agrega(m_fila);
}

/// Which answers a declaration of the period keeps. Wanted: in band C the file must answer the question of the sale,
/// but the answer isn't stored.
void AltaComprobante::PonRespuestas(const LineaComprobada& linea) {
    const Banda banda = m_tasa.BandaDeclarada();
    const bool sinLista = banda == Banda::C && linea[Campo::CreditoFiscal] == u'0';
    m_fila.Pon(m_columnas.credito, linea[Campo::CreditoFiscal])
        .Pon(m_columnas.lista, sinLista ? kSinRespuesta : linea[Campo::ListaClientes])
        .Pon(m_columnas.medPago, banda == Banda::B ? linea[Campo::RespuestaVenta] : kSinRespuesta);
}

void AltaComprobante::PonMontos(const LineaComprobada& linea) {
    const QString& monto = linea[Campo::MontoCobrado];
    const FilaTasa tasa =
        m_tasa.NuevaTasa(linea[Campo::CreditoFiscal], linea[Campo::RespuestaVenta], linea[Campo::ListaClientes], monto);
    // The amount enters the product as it was given, not rounded to cents first.
    const Importe percepcion = Importe::De(Decimal::Valor(monto) * Decimal::Valor(tasa.factor));
    m_fila.Pon(m_columnas.base, monto)
        .Pon(m_columnas.percepcion, Format(percepcion, u"###########0.#0"))
        .Pon(m_columnas.tasa, tasa.tasa);
}

AltaPago::AltaPago(Base& base) : m_base(&base), m_fila(base.Describe(u"TMPF518PDETCP"_s)) {
    const Tabla& tabla = m_fila.DeTabla();
    m_columnas = {.tipo = tabla.Indice(u"tip_doc_per"),
                  .numero = tabla.Indice(u"num_doc_per"),
                  .serie = tabla.Indice(u"num_serie_cp"),
                  .cp = tabla.Indice(u"num_cp"),
                  .tipoPago = tabla.Indice(u"tip_doc_detcp"),
                  .seriePago = tabla.Indice(u"num_serie_detcp"),
                  .numeroPago = tabla.Indice(u"num_detcp"),
                  .fecha = tabla.Indice(u"fec_emis_detcp"),
                  .monto = tabla.Indice(u"mto_detcp")};
}

void AltaPago::Agrega(const LineaComprobada& linea) {
    m_fila.Pon(m_columnas.tipo, linea.tipoDocPer)
        .Pon(m_columnas.numero, linea[Campo::NumDoc])
        .Pon(m_columnas.serie, linea[Campo::SeriePercepcion])
        .Pon(m_columnas.cp, linea[Campo::NumeroPercepcion])
        .Pon(m_columnas.tipoPago, linea[Campo::TipoCp])
        .Pon(m_columnas.seriePago, linea[Campo::SerieCp])
        .Pon(m_columnas.numeroPago, linea[Campo::NumeroCp])
        .Pon(m_columnas.fecha, linea[Campo::FechaCp])
        .Pon(m_columnas.monto, MontoDePago(linea));
    m_base->Agrega(m_fila);
}

} // namespace xa518
