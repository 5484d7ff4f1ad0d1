#include "import/PerceptionStore.h"

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
bool MismoComprobante(const AltasTrabajo::Cobro& guardado, const LineaComprobada& linea) {
    const QString& fecha = linea[Campo::FechaEmision];
    const QString& monto = linea[Campo::MontoCobrado];
    return (guardado.fecha == fecha && guardado.base.Texto() == monto) ||
           Huella(guardado.fecha, guardado.base.Texto()) == Huella(fecha, monto);
}

} // namespace

Objeciones AlmacenPercepciones::Guarda(const LineaComprobada& linea, qint64 numero) {
    if (const ClaveCliente cliente = ClienteDe(linea); !m_tablas.Existe(cliente))
        m_tablas.Agrega(cliente, NombresDe(linea), numero);
    const ComprobanteDePago pago = PagoDe(linea);
    const ClaveComprobante& clave = pago.clave.comprobante;
    const std::optional<AltasTrabajo::Cobro> guardado = m_tablas.BuscaCobro(clave);
    if (guardado && !MismoComprobante(*guardado, linea))
        return {kComprobanteDistinto};
    if (!guardado)
        m_tablas.Agrega(clave, CamposDe(linea, m_tasas), numero);
    if (m_tablas.Existe(pago.clave))
        return {kClaveDuplicada};
    m_tablas.Agrega(pago, numero);
    return {};
}

} // namespace xa518
