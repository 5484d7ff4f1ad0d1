#include "data/CatalogLayout.h"

#include "values/Error.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QStringView Tramo::Corta(QStringView texto) const {
    return Mid(texto, inicio, ancho);
}

QString Tramo::Sql(QStringView campo) const {
    return u"mid(%1,%2,%3)"_s.arg(campo).arg(inicio).arg(ancho);
}

QString Plantilla::Compone(const QHash<QString, QString>& valores) const {
    QString texto = base;
    for (const Tramo& tramo : tramos) {
        const QString valor = valores.value(tramo.columna.toString());
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
        columnas.append(tramo.columna.toString());
    return columnas;
}

const QList<Catalogado>& CatalogosComunes() {
    static const QList<Catalogado> catalogos = {
        {u"banks.csv"_s, u"004"_s, {{}, {TramosBanco::kCodigo}}, {{}, {TramosBanco::kNombre}}},
        {u"first_period.csv"_s, u"830"_s, {{}, {{u"argumento", 1, 2}}}, {{}, {TramosPrimerPeriodo::kPeriodo}}},
        {u"sales_tax.csv"_s, u"998"_s, {u"0101010"_s, {TramosImpuesto::kDesde}}, {{}, {TramosImpuesto::kTasa}}},
    };
    return catalogos;
}

} // namespace xa518
