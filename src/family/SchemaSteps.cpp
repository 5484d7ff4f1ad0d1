#include "family/SchemaSteps.h"

#include "values/Error.h"

#include <QDir>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

QStringList CarpetasDelEsquema(const Formularios& formularios) {
    QStringList carpetas{u":/esquema"_s};
    for (const Formulario& formulario : formularios)
        carpetas.append(formulario.esquema);
    return carpetas;
}

QList<PasoDeEsquema> PasosDelEsquema(const QStringList& carpetas) {
    QList<PasoDeEsquema> pasos;
    for (const QString& carpeta : carpetas) {
        for (const QString& archivo : QDir(carpeta).entryList(QDir::Files)) {
            if (archivo.endsWith(".sql"_L1)) // told here: in the listing a pattern takes longer than all the rest
                pasos.append({archivo.section(u'_', 0, 0).toInt(), carpeta + u'/' + archivo});
        }
    }
    std::sort(pasos.begin(), pasos.end(), [](const auto& uno, const auto& otro) { return uno.version < otro.version; });
    const auto repetido = std::adjacent_find(
        pasos.cbegin(), pasos.cend(), [](const auto& uno, const auto& otro) { return uno.version == otro.version; });
    if (repetido != pasos.cend())
        throw Error(NumeroError::ArgumentoInvalido, u"Dos pasos llevan el número de '%1'."_s.arg(repetido->ruta));
    return pasos;
}

int VersionDelEsquema(const Formularios& formularios) {
    const QList<PasoDeEsquema> pasos = PasosDelEsquema(CarpetasDelEsquema(formularios));
    return pasos.isEmpty() ? 0 : pasos.constLast().version;
}

} // namespace xa518
