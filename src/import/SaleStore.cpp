#include "import/SaleStore.h"

#include "import/Attempt.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr Codigo kRegistroDuplicado{"0871"};

} // namespace

AlmacenVentas::AlmacenVentas(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv)
    : m_base(&base), m_cliente(base), m_comprobante(base, periodoDeclarado, fechaPrimerIgv) {}

/// Wanted: a voucher that is there is a duplicate even when date or amount differ, and its client has been added.
Objeciones AlmacenVentas::Guarda(const LineaComprobada& linea) {
    Objeciones objeciones;
    if (m_cliente.Not_Seek_Cab_N(linea))
        Intenta(objeciones, [&] { m_cliente.Agrega(linea); });
    if (Not_Seek_Det_VC(linea))
        Intenta(objeciones, [&] { m_comprobante.Agrega(linea, linea[Campo::TipoCp]); });
    else
        objeciones.append(kRegistroDuplicado);
    return objeciones;
}

/// True when the voucher isn't in the table yet.
bool AlmacenVentas::Not_Seek_Det_VC(const LineaComprobada& linea) const {
    Registros fila = m_base->Lee(u"Select count(*) As nReg  from TMPF518PDET "
                                 " WHERE tip_doc_per = ? and num_doc_per = ?  and Num_Serie_cp = ?"
                                 " and Num_cp = ? and tip_cp = ?"_s,
                                 {linea.tipoDocPer, linea[Campo::NumDoc], linea[Campo::SeriePercepcion],
                                  linea[Campo::NumeroPercepcion], linea[Campo::TipoCp]});
    return !(fila.Siguiente() && fila.Entero(0) > 0);
}

} // namespace xa518
