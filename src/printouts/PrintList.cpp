#include "printouts/PrintList.h"

#include "family/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

ConsultaSql SqlParaImprimir(const Proceso& proceso, bool enviadas) {
    const QString columnas = u"SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO,mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as "
                             "PERIODOf, A.FORMULARIO, "_s;
    const QString registradas = u"a.estado, a.rectifica FROM CAB AS A, CONT AS B"_s;
    const QString copias = u"a.estado,a.fec_env,a.correl,a.norden,a.control, a.rectifica FROM HCAB AS A, CONT AS B"_s;
    ConsultaSql consulta{columnas + (enviadas ? copias : registradas) +
                             u" WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND A.FORMULARIO=?"_s,
                         {proceso.numFormulario}};
    LimitaAlUsuario(consulta, *proceso.baseDatos, proceso.sysUser);
    consulta.texto +=
        enviadas ? u" and a.estado=1 ORDER BY A.DOC_ID_D ASC"_s : u" ORDER BY A.DOC_ID_D ASC, a.periodo DESC"_s;
    return consulta;
}

} // namespace xa518
