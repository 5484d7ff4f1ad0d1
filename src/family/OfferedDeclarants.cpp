#include "family/OfferedDeclarants.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "data/DocumentTypes.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool VeTodo(Base& base, const QString& usuario) {
    return Catalogo(base).TipoUsuario(usuario) == u"0";
}

} // namespace

void LimitaAlUsuario(ConsultaSql& consulta, Base& base, const QString& usuario) {
    if (VeTodo(base, usuario))
        return;
    consulta.texto += u" AND B.USUARIO=?"_s;
    consulta.valores.append(usuario);
}

ConsultaSql SqlDeclarantes(Base& base, const QuienElige& quien) {
    const TipoDocumento ruc = TipoDelRuc(base);
    ConsultaSql consulta{u" SELECT * FROM CONT  WHERE Tip_doc_d=6 "_s, {}};
    if (ruc.Largo() == 11 && ruc.tipoLongitud == u"1")
        consulta.texto += u" AND len(trim(Doc_id_d))=11 ";
    if (quien.formulario == u"0275") // the sibling form; never taken by this one, but the family shares the rule
        consulta.texto += u" AND Tipo_Ingreso=2 ";
    if (VeTodo(base, quien.usuario)) {
        consulta.texto += u" ORDER BY Tip_doc_d, doc_id_d ";
    } else {
        consulta.texto += u" AND Usuario =? Order by Tip_doc_d, doc_id_d ";
        consulta.valores.append(quien.usuario);
    }
    return consulta;
}

QList<DeclaranteOfrecido> DeclarantesOfrecidos(Base& base, const QuienElige& quien) {
    const ConsultaSql consulta = SqlDeclarantes(base, quien);
    Registros filas = base.Lee(consulta.texto, QVariantList(consulta.valores.begin(), consulta.valores.end()));
    const int ruc = filas.Columna(u"Doc_id_d");
    const int nombre = filas.Columna(u"Nombre");
    QList<DeclaranteOfrecido> ofrecidos;
    while (filas.Siguiente())
        ofrecidos.append({Ruc(filas.Texto(ruc)), filas.Texto(nombre)});
    return ofrecidos;
}

} // namespace xa518
