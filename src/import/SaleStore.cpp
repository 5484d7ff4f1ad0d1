#include "import/SaleStore.h"

namespace xa518 {

namespace {

constexpr Codigo kRegistroDuplicado{"0871"};

} // namespace

/// Wanted: a voucher that is there is a duplicate even when date or amount differ, since its key stands in the
/// table; and its client has been added.
Objeciones AlmacenVentas::Guarda(const LineaComprobada& linea, qint64 numero) {
    if (const ClaveCliente cliente = ClienteDe(linea); !m_tablas.Existe(cliente))
        m_tablas.Agrega(cliente, NombresDe(linea), numero);
    const ClaveComprobante clave = ComprobanteDe(linea, linea[Campo::TipoCp]);
    if (m_tablas.Existe(clave))
        return {kRegistroDuplicado};
    m_tablas.Agrega(clave, CamposDe(linea, m_tasas), numero);
    return {};
}

} // namespace xa518
