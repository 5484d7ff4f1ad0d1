#include "import/LineFields.h"

#include "values/Text.h"

namespace xa518 {

void SeparaCampos(const QString& linea, int maximo, QStringList& campos) {
    campos.clear();
    const QString mayusculas = Mayusculas(linea);
    const QStringView texto(mayusculas);
    qsizetype desde = 0;
    while (campos.size() < maximo) {
        const qsizetype separador = texto.indexOf(u'|', desde);
        if (separador < 0)
            return;
        campos.append(Recorta(texto.sliced(desde, separador - desde)).toString());
        desde = separador + 1;
    }
}

QByteArrayView TrozoDeCampo(QByteArrayView linea, int campo) {
    for (; campo > 0; --campo)
        linea = linea.sliced(linea.indexOf('|') + 1);
    return linea.first(linea.indexOf('|'));
}

} // namespace xa518
