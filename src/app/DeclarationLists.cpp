#include "app/DeclarationLists.h"

#include "family/OfferedDeclarants.h"
#include "family/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// In which the lists differ.
struct Partes {
    QString columnas;
    QString tabla;
    QString tipos;
    QString orden;
};

/// What the lists share: the join, the form, and whose declarants are meant.
ConsultaDeLista Consulta(const Proceso& proceso, const Partes& partes) {
    ConsultaSql filtro{u"A.FORMULARIO=?"_s, {proceso.numFormulario}};
    LimitaAlUsuario(filtro, *proceso.baseDatos, proceso.sysUser);
    return {.columnas = partes.columnas,
            .desde = u"FROM %1 AS A, CONT AS B"_s.arg(partes.tabla),
            .tablas = {u"A"_s, u"B"_s},
            .vinculo = u"A.DOC_ID_D=B.DOC_ID_D AND "_s + partes.tipos,
            .filtro = filtro.texto,
            .orden = partes.orden,
            .valores = QVariantList(filtro.valores.begin(), filtro.valores.end())};
}

QString OrdenSql(OrdenRegistradas orden) {
    switch (orden) {
    case OrdenRegistradas::Periodo: break;
    case OrdenRegistradas::Ruc: return u"ORDER BY A.DOC_ID_D ASC"_s;
    case OrdenRegistradas::Nombre: return u"ORDER BY B.NOMBRE ASC"_s;
    }
    return u"ORDER BY A.PERIODO DESC"_s;
}

} // namespace

ConsultaDeLista SqlRegistradas(const Proceso& proceso, OrdenRegistradas orden) {
    return Consulta(proceso, {.columnas = u"A.DOC_ID_D, B.NOMBRE, mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as PERIODO,"
                                          " A.FORMULARIO, A.ESTADO, A.RECTIFICA"_s,
                              .tabla = u"CAB"_s,
                              .tipos = u"A.TIP_DOC_D=6 AND B.TIP_DOC_D=6"_s,
                              .orden = OrdenSql(orden)});
}

ConsultaDeLista SqlEnviadas(const Proceso& proceso, MomentoEnviadas momento) {
    const bool esCarga = momento == MomentoEnviadas::Carga;
    return Consulta(proceso,
                    {.columnas = u"A.DOC_ID_D, B.NOMBRE, mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as PERIODO,"
                                 " A.FORMULARIO, A.NORDEN, A.FEC_ENV, A.CONTROL, A.CORREL, A.RECTIFICA"_s,
                     .tabla = u"HCAB"_s,
                     // "A" twice at load is wanted: see the header.
                     .tipos = esCarga ? u"A.TIP_DOC_D=6 AND A.TIP_DOC_D=6"_s : u"A.TIP_DOC_D=6 AND B.TIP_DOC_D=6"_s,
                     .orden = u"ORDER BY A.DOC_ID_D ASC, A.PERIODO"_s});
}

} // namespace xa518
