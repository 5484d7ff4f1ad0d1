#include "family/DeclarationKey.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QString ClaveDeclaracion::Tabla(const QString& registrada) const {
    return enviada ? u'H' + registrada : registrada;
}

QString ClaveDeclaracion::Condicion() const {
    return u"WHERE TIP_DOC_D = 6 AND "_s + CondicionSinTipo().sliced(u"WHERE "_s.size());
}

QString ClaveDeclaracion::CondicionSinTipo() const {
    const QString registrada = u"WHERE DOC_ID_D = ? AND PERIODO = ? AND FORMULARIO = ?"_s;
    return enviada ? registrada + u" AND CORREL = ?"_s : registrada;
}

QVariantList ClaveDeclaracion::Valores() const {
    QVariantList valores{ruc.Texto(), periodo.Texto(), formulario};
    if (enviada)
        valores.append(correl);
    return valores;
}

} // namespace xa518
