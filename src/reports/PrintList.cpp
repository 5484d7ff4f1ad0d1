#include "reports/PrintList.h"

#include "data/Catalog.h"
#include "data/Process.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString SqlLista(bool enviadas, bool soloPropias) {
    const QString columnas = u"SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO,mid$(A.PERIODO,5,2) & mid$(A.PERIODO,1,4) as "
                             "PERIODOf, A.FORMULARIO, "_s;
    const QString registradas = u"a.estado, a.rectifica FROM CAB AS A, CONT AS B"_s;
    const QString copias = u"a.estado,a.fec_env,a.correl,a.norden,a.control, a.rectifica FROM HCAB AS A, CONT AS B"_s;
    const QString condicion = u" WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND A.FORMULARIO=?"_s;
    return columnas + (enviadas ? copias : registradas) + condicion +
           (soloPropias ? u" AND B.USUARIO=?"_s : QString()) +
           (enviadas ? u" and a.estado=1 ORDER BY A.DOC_ID_D ASC"_s : u" ORDER BY A.DOC_ID_D ASC, a.periodo DESC"_s);
}

/// By name: the two lists keep `rectifica` at different places.
FilaImprimir Fila(const Registros& fila, bool enviadas) {
    FilaImprimir leida{fila.Texto(u"DOC_ID_D"),
                       fila.Texto(u"NOMBRE"),
                       fila.Texto(u"PERIODO"),
                       fila.Texto(u"PERIODOf"),
                       fila.Texto(u"FORMULARIO"),
                       fila.Texto(u"estado"),
                       fila.Texto(u"rectifica"),
                       {},
                       {},
                       {},
                       {}};
    if (enviadas) {
        leida.fecEnv = fila.Texto(u"fec_env");
        leida.correl = fila.Texto(u"correl");
        leida.norden = fila.Texto(u"norden");
        leida.control = fila.Texto(u"control");
    }
    return leida;
}

} // namespace

ClaveDeclaracion FilaImprimir::Clave(bool enviada) const {
    return {docIdD, periodo, formulario, enviada, correl};
}

QList<FilaImprimir> DeclaracionesParaImprimir(Proceso& proceso, bool enviadas) {
    Base& base = *proceso.baseDatos;
    const bool soloPropias = Catalogo(base).TipoUsuario(proceso.sysUser) != u"0";
    QVariantList valores{proceso.numFormulario};
    if (soloPropias)
        valores.append(proceso.sysUser);
    QList<FilaImprimir> lista;
    Registros filas = base.Lee(SqlLista(enviadas, soloPropias), valores);
    while (filas.Siguiente())
        lista.append(Fila(filas, enviadas));
    return lista;
}

} // namespace xa518
