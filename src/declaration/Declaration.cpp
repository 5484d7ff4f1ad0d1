#include "declaration/Declaration.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QString Letra(FormaDePago forma) {
    switch (forma) {
    case FormaDePago::Efectivo: return u"E"_s;
    case FormaDePago::Cheque: return u"C"_s;
    case FormaDePago::SinElegir: break;
    }
    return u"X"_s;
}

FormaDePago FormaDeLetra(QStringView letra) {
    if (letra == u'E')
        return FormaDePago::Efectivo;
    return letra == u'C' ? FormaDePago::Cheque : FormaDePago::SinElegir;
}

QString Digito(Rectificacion rectifica) {
    switch (rectifica) {
    case Rectificacion::No: return u"0"_s;
    case Rectificacion::Si: return u"1"_s;
    case Rectificacion::SinResponder: break;
    }
    return {};
}

Rectificacion RectificacionDe(QStringView digito) {
    if (digito == u'0')
        return Rectificacion::No;
    return digito == u'1' ? Rectificacion::Si : Rectificacion::SinResponder;
}

} // namespace xa518
