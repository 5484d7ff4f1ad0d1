#include "form518/RowCounts.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

qint64 Cuenta(Base& base, const QString& desde, const QVariantList& valores = {}) {
    Registros fila = base.Lee(u"SELECT count(*) FROM "_s + desde, valores);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

} // namespace

qint64 FilasDelDetalle(Base& base, const ClaveDeclaracion& clave) {
    qint64 filas = 0;
    for (const QString& tabla : {u"TMPF518PCAB"_s, u"TMPF518PDET"_s, u"TMPF518PDETCP"_s})
        filas += Cuenta(base, tabla);
    for (const QString& tabla : {u"F518PCAB"_s, u"F518PDET"_s, u"F518PDETVC"_s})
        filas += Cuenta(base, clave.Tabla(tabla) + u' ' + clave.Condicion(), clave.Valores());
    return filas + Cuenta(base, clave.Tabla(u"F518PDETCP"_s) + u' ' + clave.CondicionSinTipo(), clave.Valores());
}

} // namespace xa518
