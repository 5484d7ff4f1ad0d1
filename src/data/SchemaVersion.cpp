#include "data/SchemaVersion.h"

#include "data/Base.h"
#include "data/ServerFailure.h"

namespace xa518 {

using namespace Qt::StringLiterals;

int VersionDe(Base& base) {
    return base.VersionDelEsquema();
}

void ExigeVersion(Base& base, int esperada) {
    const int version = VersionDe(base);
    if (version == esperada)
        return;
    const bool esPosterior = version > esperada;
    const QString texto = u"La base '%1' es de la versión %2 y este programa usa la %3. %4"_s.arg(
        base.Ruta(), QString::number(version), QString::number(esperada),
        esPosterior ? u"Instale la versión actual del programa."_s : u"Ejecute consola --instalar."_s);
    if (esPosterior && EsDeServidor(base.Ruta()))
        throw ErrorDeServidor(FallaDeServidor::Posterior, texto);
    throw ErrorBase(NumeroError::VersionAjena, texto);
}

} // namespace xa518
