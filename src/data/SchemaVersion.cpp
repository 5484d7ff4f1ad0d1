#include "data/SchemaVersion.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

int VersionDe(Base& base) {
    Registros fila = base.Lee(u"PRAGMA user_version"_s);
    return fila.Siguiente() ? static_cast<int>(fila.Entero(0)) : 0;
}

void ExigeVersion(Base& base, int esperada) {
    const int version = VersionDe(base);
    if (version == esperada)
        return;
    throw ErrorBase(NumeroError::VersionAjena, u"La base '%1' es de la versión %2 y este programa usa la %3. %4"_s.arg(
                                                   base.Ruta(), QString::number(version), QString::number(esperada),
                                                   version > esperada ? u"Instale la versión actual del programa."_s
                                                                      : u"Ejecute consola --instalar."_s));
}

} // namespace xa518
