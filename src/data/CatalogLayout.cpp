#include "data/CatalogLayout.h"

#include "values/Error.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QString Plantilla::Compone(const QHash<QString, QString>& valores) const {
    QString texto = base;
    for (const Tramo& tramo : tramos) {
        const QString valor = valores.value(tramo.columna);
        if (valor.size() > tramo.ancho)
            throw Error(NumeroError::ArgumentoInvalido,
                        u"'%1' no cabe en la columna %2 del catálogo."_s.arg(valor, tramo.columna));
        texto = texto.leftJustified(tramo.inicio - 1 + tramo.ancho, u' ');
        texto.replace(tramo.inicio - 1, tramo.ancho, valor.leftJustified(tramo.ancho, u' '));
    }
    return texto;
}

QStringList Plantilla::Columnas() const {
    QStringList columnas;
    for (const Tramo& tramo : tramos)
        columnas.append(tramo.columna);
    return columnas;
}

namespace {

/// Character 7 of the argument is read by nobody.
Catalogado ImpuestoVentas() {
    return {u"sales_tax.csv"_s, u"998"_s, {u"0101010"_s, {{u"desde"_s, 8, 6}}}, {{}, {{u"tasa"_s, 2, 6}}}};
}

} // namespace

const QList<Catalogado>& CatalogosComunes() {
    static const QList<Catalogado> catalogos = {
        {u"banks.csv"_s, u"004"_s, {{}, {{u"codigo"_s, 1, 2}}}, {{}, {{u"nombre"_s, 1, 36}}}},
        {u"first_period.csv"_s, u"830"_s, {{}, {{u"argumento"_s, 1, 2}}}, {{}, {{u"periodo"_s, 1, 6}}}},
        ImpuestoVentas(),
    };
    return catalogos;
}

} // namespace xa518
