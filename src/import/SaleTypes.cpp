#include "import/SaleTypes.h"

#include "data/Base.h"
#include "form518/FormCatalogs.h"

namespace xa518 {

using namespace Qt::StringLiterals;

TiposDeVenta LeeTiposDeVenta(Base& base) {
    TiposDeVenta tipos;
    for (const TipoDocumento& documento : DocumentosOfrecidos(base, UsosDocumento::kEnSujetos))
        tipos.documentos.insert(documento.codigo.Texto(), DocumentoDeTipo(base, documento.codigo));
    Registros filas = base.Lee(u"SELECT argumento, funcion FROM PARAM WHERE numero='233' AND "
                               "%1='1'"_s.arg(TramosTipoComprobante::kUso.Sql(u"FUNCION")));
    while (filas.Siguiente())
        tipos.comprobantes.append(filas.Texto(0));
    return tipos;
}

} // namespace xa518
