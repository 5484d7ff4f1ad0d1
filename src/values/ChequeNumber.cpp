#include "values/ChequeNumber.h"

#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

bool EsDeCheque(QChar caracter) {
    return EsLetra(caracter) || EsDigito(caracter) || caracter == u' ';
}

QString DefectoDeCheque(QStringView numero) {
    if (numero.size() > kLargoCheque)
        return u"tiene %1 caracteres como máximo"_s.arg(kLargoCheque);
    if (!std::all_of(numero.begin(), numero.end(), EsDeCheque))
        return u"lleva sólo letras sin tilde, dígitos y espacios"_s;
    return {};
}

} // namespace xa518
