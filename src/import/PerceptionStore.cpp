#include "import/PerceptionStore.h"

#include "import/Attempt.h"
#include "values/Dates.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr Codigo kComprobanteDistinto{"0872"};

/// By what two readings of a perception voucher are told to be the same.
QString Huella(const QString& fecha, const QString& monto) {
    return FormatFecha(fecha, u"dd/mm/yyyy") + Format(monto, u"############.##");
}

/// Texts that are the same need no format to be found so, and most are.
bool MismoComprobante(const QString& fecha, const QString& monto, const LineaComprobada& linea) {
    const QString& suFecha = linea[Campo::FechaEmision];
    const QString& suMonto = linea[Campo::MontoCobrado];
    return (fecha == suFecha && monto == suMonto) || Huella(fecha, monto) == Huella(suFecha, suMonto);
}

} // namespace

AlmacenPercepciones::AlmacenPercepciones(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_base(&base), m_cliente(base), m_comprobante(base, periodoDeclarado, fechaPrimerIgv), m_pago(base) {}

Objeciones AlmacenPercepciones::Guarda(const LineaComprobada& linea) {
    Objeciones objeciones;
    if (m_cliente.Not_Seek_Cab_N(linea))
        Intenta(objeciones, [&] { m_cliente.Agrega(linea); });
    const Leido leido = Not_Seek_Det_N(linea);
    if (leido == Leido::Distinto) {
        objeciones.append(kComprobanteDistinto);
        return objeciones;
    }
    if (leido == Leido::No)
        Intenta(objeciones, [&] { m_comprobante.Agrega(linea, u""_s); });
    Intenta(objeciones, [&] { m_pago.Agrega(linea); });
    return objeciones;
}

/// Looks for the line's perception voucher among those already in the table, and compares date and amount.
AlmacenPercepciones::Leido AlmacenPercepciones::Not_Seek_Det_N(const LineaComprobada& linea) const {
    Registros fila = m_base->Lee(
        u"Select fec_emision_cp, mto_base_p  from TMPF518PDET "
        " WHERE tip_doc_per = ? and num_doc_per = ?  and Num_Serie_cp = ?"
        " and Num_cp = ? and tip_cp = ''"_s,
        {linea.tipoDocPer, linea[Campo::NumDoc], linea[Campo::SeriePercepcion], linea[Campo::NumeroPercepcion]});
    if (!fila.Siguiente())
        return Leido::No;
    return MismoComprobante(fila.Texto(0), fila.Texto(1), linea) ? Leido::Igual : Leido::Distinto;
}

} // namespace xa518
