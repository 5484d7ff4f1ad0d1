#include "import/SaleTypes.h"

#include "data/Base.h"
#include "values/Format.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kOfrecidosAlCliente = 82; ///< column of catalogue "044"

} // namespace

TiposDeVenta LeeTiposDeVenta(Base& base) {
    TiposDeVenta tipos;
    for (const TipoDocumento& documento : DocumentosOfrecidos(base, kOfrecidosAlCliente))
        tipos.documentos.insert(Format(documento.codigo, u"00"), DocumentoDeTipo(base, documento.codigo));
    Registros filas = base.Lee(u"SELECT argumento, funcion FROM PARAM WHERE numero='233' AND "
                               "MID(FUNCION,64,1)='1'"_s);
    while (filas.Siguiente())
        tipos.comprobantes.append(filas.Texto(0));
    return tipos;
}

} // namespace xa518
