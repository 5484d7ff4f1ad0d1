#include "import/WorkRows.h"

#include "import/FieldRules.h"
#include "values/Decimal.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What stands in a text column that a client of the other kind uses.
const QString kSinTexto = u" "_s;
const QString kSinRespuesta = u"9"_s;

/// First names, mother's surname, father's: wanted, though elsewhere a person's name begins with the father's: the save
/// stores the parts alone.
QString NombreCompleto(const LineaComprobada& linea) {
    const QString nombre =
        linea[Campo::Nombres] + u' ' + linea[Campo::ApellidoMaterno] + u' ' + linea[Campo::ApellidoPaterno];
    return nombre.left(kLargoRazon);
}

/// Wanted: the amount stays as the file has it; only a credit note is turned into a number, for its sign.
QString MontoGuardado(const LineaComprobada& linea) {
    const QString& monto = linea[Campo::MontoCp];
    return linea.EsNotaDeCredito() ? Decimal::Valor(monto).Opuesto().Texto() : monto;
}

/// What stands for the answer about the zone. Wanted: in band C the file must answer the question of the sale, but the
/// answer isn't stored.
QString MedPagoDe(const LineaComprobada& linea, Banda banda) {
    return banda == Banda::B ? linea[Campo::RespuestaVenta] : kSinRespuesta;
}

QString ListaClieDe(const LineaComprobada& linea, Banda banda) {
    const bool sinLista = banda == Banda::C && linea[Campo::CreditoFiscal] == u'0';
    return sinLista ? kSinRespuesta : linea[Campo::ListaClientes];
}

} // namespace

ClaveCliente ClienteDe(const LineaComprobada& linea) {
    return {.tipoDoc = CodigoDocumento(linea.tipoDocPer), .numero = linea[Campo::NumDoc]};
}

NombresCliente NombresDe(const LineaComprobada& linea) {
    if (linea.clienteEsEmpresa)
        return {
            .razon = linea[Campo::RazonSocial], .apellidoP = kSinTexto, .apellidoM = kSinTexto, .nombres = kSinTexto};
    return {.razon = NombreCompleto(linea),
            .apellidoP = linea[Campo::ApellidoPaterno],
            .apellidoM = linea[Campo::ApellidoMaterno],
            .nombres = linea[Campo::Nombres]};
}

ClaveComprobante ComprobanteDe(const LineaComprobada& linea, const QString& tipCp) {
    return {.cliente = ClienteDe(linea),
            .serie = linea[Campo::SeriePercepcion],
            .numero = linea[Campo::NumeroPercepcion],
            .tipCp = tipCp};
}

CamposComprobante CamposDe(const LineaComprobada& linea, TasaImportacion& tasas) {
    const QString& monto = linea[Campo::MontoCobrado];
    const FilaTasa tasa =
        tasas.NuevaTasa(linea[Campo::CreditoFiscal], linea[Campo::RespuestaVenta], linea[Campo::ListaClientes], monto);
    // The amount enters the product as it was given, not rounded to cents first.
    const Importe percepcion = Importe::De(Decimal::Valor(monto) * Decimal::Valor(tasa.factor));
    const Banda banda = tasas.BandaDeclarada();
    return {.cpFact = linea[Campo::CreditoFiscal],
            .listaClie = ListaClieDe(linea, banda),
            .medPago = MedPagoDe(linea, banda),
            .fecha = linea[Campo::FechaEmision],
            .base = MontoEscrito(monto),
            .percepcion = percepcion,
            .tasa = tasa.tasa};
}

ComprobanteDePago PagoDe(const LineaComprobada& linea) {
    return {.clave = {.comprobante = ComprobanteDe(linea, u""_s),
                      .tipo = linea[Campo::TipoCp],
                      .serie = linea[Campo::SerieCp],
                      .numero = linea[Campo::NumeroCp]},
            .fecha = linea[Campo::FechaCp],
            .monto = MontoEscrito(MontoGuardado(linea))};
}

} // namespace xa518
