#include "form518/ClientName.h"

#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

QString NombreCliente(const QString& razon, const QString& paterno, const QString& materno, const QString& nombres) {
    return Recorta(razon).isEmpty() ? paterno + u' ' + materno + u", "_s + nombres : razon;
}

} // namespace xa518
