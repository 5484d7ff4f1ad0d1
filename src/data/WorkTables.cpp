#include "data/WorkTables.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "values/Format.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTipoRuc = 6;
constexpr int kLargoRazon = 40;

/// Copies the columns that both rows have under the same name.
class CopiaColumnas {
  public:
    CopiaColumnas(const Registros& origen, const Tabla& destino, const QStringList& columnas) {
        for (const QString& columna : columnas)
            m_pares.emplace_back(origen.Columna(columna), destino.Indice(columna));
    }
    void Copia(const Registros& origen, Registro& destino) const {
        for (const auto& [de, a] : m_pares)
            destino.Pon(a, origen.Valor(de));
    }

  private:
    std::vector<std::pair<int, int>> m_pares;
};

} // namespace

} // namespace xa518
