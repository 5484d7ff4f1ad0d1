#include "import/FieldChecks.h"

namespace xa518 {

using namespace Qt::StringLiterals;

Refutacion CompruebaLinea(std::span<const Comprobacion> comprobaciones, const QStringList& campos,
                          const ContextoImportacion& contexto, LineaComprobada& linea) {
    for (size_t i = 0; i < comprobaciones.size(); ++i) {
        if (std::cmp_equal(i, campos.size()))
            return {"0201"_L1};
        QString& campo = linea.campos[i];
        campo = campos[static_cast<qsizetype>(i)];
        const Codigo codigo = comprobaciones[i](campo, linea, contexto);
        if (!codigo.isEmpty())
            return {codigo, static_cast<int>(i)};
    }
    return {};
}

} // namespace xa518
