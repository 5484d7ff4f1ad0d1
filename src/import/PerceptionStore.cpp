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
bool MismoComprobante(const ComprobantesTrabajo::Cobro& guardado, const LineaComprobada& linea) {
    const QString& fecha = linea[Campo::FechaEmision];
    const QString& monto = linea[Campo::MontoCobrado];
    return (guardado.fecha == fecha && guardado.base.Texto() == monto) ||
           Huella(guardado.fecha, guardado.base.Texto()) == Huella(fecha, monto);
}

} // namespace

AlmacenPercepciones::AlmacenPercepciones(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_clientes(base), m_comprobantes(base), m_pagos(base), m_tasas(base, periodoDeclarado, fechaPrimerIgv) {}

Objeciones AlmacenPercepciones::Guarda(const LineaComprobada& linea) {
    Objeciones objeciones;
    if (const ClaveCliente cliente = ClienteDe(linea); !m_clientes.Existe(cliente))
        Intenta(objeciones, [&] { m_clientes.Agrega(cliente, NombresDe(linea)); });
    const ComprobanteDePago pago = PagoDe(linea);
    const ClaveComprobante& clave = pago.clave.comprobante;
    const std::optional<ComprobantesTrabajo::Cobro> guardado = m_comprobantes.BuscaCobro(clave);
    if (guardado && !MismoComprobante(*guardado, linea)) {
        objeciones.append(kComprobanteDistinto);
        return objeciones;
    }
    if (!guardado)
        Intenta(objeciones, [&] { m_comprobantes.Agrega(clave, CamposDe(linea, m_tasas)); });
    Intenta(objeciones, [&] { m_pagos.Agrega(pago.clave, pago.fecha, pago.monto); });
    return objeciones;
}

} // namespace xa518
