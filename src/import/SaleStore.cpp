#include "import/SaleStore.h"

#include "import/Attempt.h"

namespace xa518 {

namespace {

constexpr Codigo kRegistroDuplicado{"0871"};

} // namespace

AlmacenVentas::AlmacenVentas(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_clientes(base), m_comprobantes(base), m_tasas(base, periodoDeclarado, fechaPrimerIgv) {}

/// Wanted: a voucher that is there is a duplicate even when date or amount differ, since its key stands in the
/// table; and its client has been added.
Objeciones AlmacenVentas::Guarda(const LineaComprobada& linea) {
    Objeciones objeciones;
    if (const ClaveCliente cliente = ClienteDe(linea); !m_clientes.Existe(cliente))
        Intenta(objeciones, [&] { m_clientes.Agrega(cliente, NombresDe(linea)); });
    const ClaveComprobante clave = ComprobanteDe(linea, linea[Campo::TipoCp]);
    if (m_comprobantes.Existe(clave))
        objeciones.append(kRegistroDuplicado);
    else
        Intenta(objeciones, [&] { m_comprobantes.Agrega(clave, CamposDe(linea, m_tasas)); });
    return objeciones;
}

} // namespace xa518
