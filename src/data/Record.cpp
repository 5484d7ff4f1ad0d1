#include "data/Record.h"

#include "data/Base.h"
#include "values/Text.h"

#include <QDate>

namespace xa518 {

using namespace Qt::StringLiterals;

int Tabla::Indice(QStringView columna) const {
    for (int i = 0; i < columnas.size(); ++i) {
        if (columna.compare(columnas[i].nombre, Qt::CaseInsensitive) == 0)
            return i;
    }
    throw ErrorBase(NumeroError::CampoNoExiste, u"La tabla %1 no tiene la columna %2"_s.arg(nombre, columna));
}

Registro::Registro(const Tabla& tabla) : m_tabla(&tabla), m_valores(tabla.columnas.size()) {}

Registro& Registro::Pon(int columna, QVariant valor) {
    m_valores[columna] = std::move(valor);
    return *this;
}

QString Registro::TextoDe(int columna) const {
    const QVariant& valor = m_valores[columna];
    if (valor.isNull())
        return {};
    return Recorta(valor.toString()).toString();
}

CopiaColumnas::CopiaColumnas(const Registros& origen, const Tabla& destino, const QStringList& columnas) {
    for (const QString& columna : columnas)
        m_pares.emplace_back(origen.Columna(columna), destino.Indice(columna));
}

void CopiaColumnas::Copia(const Registros& origen, Registro& destino) const {
    for (const auto& [de, a] : m_pares)
        destino.Pon(a, origen.Valor(de));
}

} // namespace xa518
