#include "import/CheckedLine.h"

#include "values/Decimal.h"

namespace xa518 {

QString ClaveDeLinea(const QStringList& campos) {
    const auto campo = [&](Campo cual) { return campos.value(static_cast<qsizetype>(cual)); };
    return campo(Campo::TipoDoc) + u' ' + campo(Campo::NumDoc) + u' ' + campo(Campo::SeriePercepcion) + u' ' +
           campo(Campo::NumeroPercepcion);
}

void LineaComprobada::PonTipoDoc(const QString& campo) {
    const Decimal valor = Decimal::Valor(campo);
    tipoDocLinea = valor.Texto();
    tipoDocPer = static_cast<int>(valor.RedondeaPar(0).Mantisa());
}

bool LineaComprobada::EsNotaDeCredito() const {
    return Decimal::Valor(tipoCpCrudo) == Decimal::DeEntero(7);
}

} // namespace xa518
