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

/// The row's columns from one of them on.
QStringList Textos(const Registros& fila, int desde) {
    QStringList textos;
    for (int columna = desde, columnas = fila.Columnas(); columna < columnas; ++columna)
        textos.append(fila.Texto(columna));
    return textos;
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

std::vector<QStringList> ListaLarga::Lee(int primera, int cuantas) const {
    std::vector<QStringList> leidas(static_cast<size_t>(std::min(cuantas, Filas() - primera)));
    const QString pedidas = QStringList(kFilasPorVez, u"?"_s).join(u',');
    const QString sql = u"SELECT %1, %2 %3%4"_s.arg(
        m_numeros.join(u", "_s), m_consulta.columnas, m_consulta.desde,
        Condicion({m_consulta.vinculo, m_numeros.constFirst() + u" IN ("_s + pedidas + u')'}));
    const std::span<QStringList> todas(leidas);
    for (size_t desde = 0; desde < todas.size(); desde += kFilasPorVez) {
        const size_t filas = std::min<size_t>(kFilasPorVez, todas.size() - desde);
        LeeGrupo(sql, static_cast<size_t>(primera) + desde, todas.subspan(desde, filas));
    }
    return leidas;
}

// The engine gives the rows as it finds them; their numbers tell where each belongs.
void ListaLarga::LeeGrupo(const QString& sql, size_t primera, std::span<QStringList> leidas) const {
    const auto ancho = static_cast<size_t>(m_numeros.size());
    std::map<Lugar, size_t> puestos;
    QVariantList valores;
    for (size_t fila = 0; fila < leidas.size(); ++fila) {
        const auto lugar = m_lugares.begin() + static_cast<qsizetype>((primera + fila) * ancho);
        puestos.emplace(Lugar(lugar, lugar + m_numeros.size()), fila);
        valores.append(*lugar);
    }
    valores.resize(kFilasPorVez, valores.constLast());
    Registros filas = m_base->Lee(sql, valores);
    while (filas.Siguiente()) {
        const auto puesto = puestos.find(LugarDe(filas));
        if (puesto != puestos.end())
            leidas[puesto->second] = Textos(filas, static_cast<int>(ancho));
    }
}

ListaLarga::Lugar ListaLarga::LugarDe(const Registros& fila) const {
    Lugar lugar;
    for (int tabla = 0; tabla < m_numeros.size(); ++tabla)
        lugar.push_back(fila.Entero(tabla));
    return lugar;
}

} // namespace xa518
