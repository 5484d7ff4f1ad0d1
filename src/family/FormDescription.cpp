#include "family/FormDescription.h"

#include "data/Base.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

int Formulario::NumericasDe(const QString& tabla) const {
    for (const TablaDeDeclaracion& una : tablas) {
        if (tabla.compare(una.nombre, Qt::CaseInsensitive) == 0)
            return una.numericas;
        if (tabla.compare(u'H' + una.nombre, Qt::CaseInsensitive) == 0)
            return una.numericasEnviada;
    }
    throw ErrorBase(NumeroError::TablaNoExiste, u"La tabla %1 no lleva cNumero"_s.arg(tabla));
}

const Formulario& FormularioDe(const Formularios& formularios, const QString& numero) {
    const auto hallado = std::find_if(formularios.cbegin(), formularios.cend(),
                                      [&](const Formulario& formulario) { return formulario.numero == numero; });
    if (hallado == formularios.cend())
        throw Error(NumeroError::ArgumentoInvalido, u"Este programa no conoce el formulario %1."_s.arg(numero));
    return *hallado;
}

} // namespace xa518
