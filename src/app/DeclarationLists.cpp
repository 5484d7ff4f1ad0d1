#include "app/DeclarationLists.h"

#include "family/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// In which the lists differ.
struct Partes {
    QString columnas; ///< and the tables
    QString tipos;
    QString orden;
};

/// What the lists share: the join, the form, and whose declarants are meant.
ConsultaSql Consulta(const Proceso& proceso, const Partes& partes) {
    ConsultaSql consulta{partes.columnas + u" WHERE A.DOC_ID_D=B.DOC_ID_D AND"_s + partes.tipos + u" A.FORMULARIO=?"_s,
                         {proceso.numFormulario}};
    LimitaAlUsuario(consulta, *proceso.baseDatos, proceso.sysUser);
    consulta.texto += partes.orden;
    return consulta;
}

QString OrdenSql(OrdenRegistradas orden) {
    switch (orden) {
    case OrdenRegistradas::Periodo: break;
    case OrdenRegistradas::Ruc: return u" ORDER BY A.DOC_ID_D ASC"_s;
    case OrdenRegistradas::Nombre: return u" ORDER BY B.NOMBRE ASC"_s;
    }
    return u" ORDER BY A.PERIODO DESC"_s;
}

} // namespace

ConsultaSql SqlRegistradas(const Proceso& proceso, OrdenRegistradas orden) {
    return Consulta(proceso,
                    {u"SELECT A.DOC_ID_D, B.NOMBRE, mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as PERIODO, A.FORMULARIO,"
                     " A.ESTADO, A.RECTIFICA FROM CAB AS A, CONT AS B"_s,
                     u" A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND"_s, OrdenSql(orden)});
}

ConsultaSql SqlEnviadas(const Proceso& proceso, MomentoEnviadas momento) {
    const bool esCarga = momento == MomentoEnviadas::Carga;
    const QString mes = esCarga ? u"mid$(A.PERIODO,5,2)"_s : u"mid(A.PERIODO,5,2)"_s;
    return Consulta(proceso,
                    {u"SELECT A.DOC_ID_D, B.NOMBRE, "_s + mes +
                         u" & mid$(A.PERIODO,1,4) as PERIODO, A.FORMULARIO, A.NORDEN, A.FEC_ENV, A.CONTROL, A.CORREL,"
                         " A.RECTIFICA FROM HCAB AS A, CONT AS B"_s,
                     // "A" twice at load is wanted: see the header.
                     esCarga ? u" A.TIP_DOC_D=6 AND A.TIP_DOC_D=6 AND"_s : u" A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND"_s,
                     u" ORDER BY A.DOC_ID_D ASC, A.PERIODO"_s});
}

} // namespace xa518
