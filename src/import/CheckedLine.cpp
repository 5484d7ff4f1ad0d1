#include "import/CheckedLine.h"

#include "values/Decimal.h"

namespace xa518 {

QString ClaveDeLinea(const QStringList& campos) {
    const auto campo = [&](Campo cual) { return campos.value(static_cast<qsizetype>(cual)); };
    return campo(Campo::TipoDoc) + u' ' + campo(Campo::NumDoc) + u' ' + campo(Campo::SeriePercepcion) + u' ' +
           campo(Campo::NumeroPercepcion);
}

bool LineaComprobada::EsNotaDeCredito() const {
    return Decimal::Valor(tipoCpCrudo) == Decimal::DeEntero(7);
}

} // namespace xa518
