#include "data/LongList.h"

#include "data/Base.h"

#include <algorithm>
#include <map>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// How many rows are asked for in one statement, which is the same text for any of them.
constexpr int kFilasPorVez = 500;

QString Condicion(QStringList partes) {
    partes.removeAll(QString());
    return partes.isEmpty() ? QString() : u" WHERE "_s + partes.join(u" AND "_s);
}

} // namespace

ListaLarga::ListaLarga(Base& base, ConsultaDeLista consulta) : m_base(&base), m_consulta(std::move(consulta)) {
    for (const QString& tabla : m_consulta.tablas)
        m_numeros.append(base.NumeroDeFila(tabla));
    const QString orden = m_consulta.orden.isEmpty() ? u"ORDER BY "_s + m_numeros.constFirst() : m_consulta.orden;
    const QString condicion = Condicion({m_consulta.vinculo, m_consulta.filtro});
    Registros filas = base.Lee(u"SELECT %1 %2%3 %4"_s.arg(m_numeros.join(u", "_s), m_consulta.desde, condicion, orden),
                               m_consulta.valores);
    while (filas.Siguiente()) {
        for (int tabla = 0; tabla < m_numeros.size(); ++tabla)
            m_lugares.push_back(filas.Entero(tabla));
    }
}

int ListaLarga::Filas() const {
    return static_cast<int>(m_lugares.size() / static_cast<size_t>(m_numeros.size()));
}

// The engine gives the rows as it finds them; their numbers tell where each belongs.
std::vector<QStringList> ListaLarga::Lee(int primera, int cuantas) const {
    std::vector<QStringList> leidas(static_cast<size_t>(std::min(cuantas, Filas() - primera)));
    const auto ancho = m_numeros.size();
    const QString pedidas = QStringList(kFilasPorVez, u"?"_s).join(u',');
    const QString sql = u"SELECT %1, %2 %3%4"_s.arg(
        m_numeros.join(u", "_s), m_consulta.columnas, m_consulta.desde,
        Condicion({m_consulta.vinculo, m_numeros.constFirst() + u" IN ("_s + pedidas + u')'}));
    for (size_t desde = 0; desde < leidas.size(); desde += kFilasPorVez) {
        const size_t hasta = std::min(leidas.size(), desde + kFilasPorVez);
        std::map<Lugar, size_t> puestos;
        QVariantList valores;
        for (size_t fila = desde; fila < hasta; ++fila) {
            const auto lugar = m_lugares.begin() + (primera + static_cast<qsizetype>(fila)) * ancho;
            puestos.emplace(Lugar(lugar, lugar + ancho), fila);
            valores.append(*lugar);
        }
        valores.resize(kFilasPorVez, valores.constLast());
        Registros filas = m_base->Lee(sql, valores);
        const int columnas = filas.Columnas();
        while (filas.Siguiente()) {
            Lugar lugar;
            for (int tabla = 0; tabla < ancho; ++tabla)
                lugar.push_back(filas.Entero(tabla));
            const auto puesto = puestos.find(lugar);
            if (puesto == puestos.end())
                continue;
            QStringList& fila = leidas[puesto->second];
            for (int columna = static_cast<int>(ancho); columna < columnas; ++columna)
                fila.append(filas.Texto(columna));
        }
    }
    return leidas;
}

} // namespace xa518
