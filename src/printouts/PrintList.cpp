#include "printouts/PrintList.h"

#include "family/OfferedDeclarants.h"
#include "family/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

ConsultaDeLista SqlParaImprimir(const Proceso& proceso, bool enviadas) {
    ConsultaSql filtro{u"A.FORMULARIO=?"_s, {proceso.numFormulario}};
    LimitaAlUsuario(filtro, *proceso.baseDatos, proceso.sysUser);
    if (enviadas)
        filtro.texto += u" and a.estado=1"_s;
    const QString propias =
        enviadas ? u"a.estado,a.fec_env,a.correl,a.norden,a.control, a.rectifica"_s : u"a.estado, a.rectifica"_s;
    return {.columnas = u"A.DOC_ID_D, B.NOMBRE, A.PERIODO,mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as PERIODOf, "
                        "A.FORMULARIO, "_s +
                        propias,
            .desde = u"FROM %1 AS A, CONT AS B"_s.arg(enviadas ? u"HCAB"_s : u"CAB"_s),
            .tablas = {u"A"_s, u"B"_s},
            .vinculo = u"A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6"_s,
            .filtro = filtro.texto,
            .orden = enviadas ? u"ORDER BY A.DOC_ID_D ASC"_s : u"ORDER BY A.DOC_ID_D ASC, a.periodo DESC"_s,
            .valores = QVariantList(filtro.valores.begin(), filtro.valores.end())};
}

} // namespace xa518
