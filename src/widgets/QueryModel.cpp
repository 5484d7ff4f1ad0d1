#include "widgets/QueryModel.h"

#include "data/Base.h"
#include "data/LongList.h"
#include "values/Format.h"
#include "widgets/Application.h"

#include <QTimer>

#include <algorithm>
#include <exception>
#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasPorPagina = 500;
constexpr int kPaginasGuardadas = 20;

/// All rows of a query.
std::vector<QStringList> LeeFilas(Base& base, const QString& sql) {
    Registros filas = base.Lee(sql);
    const int campos = filas.Columnas();
    std::vector<QStringList> leidas;
    while (filas.Siguiente()) {
        QStringList fila;
        for (int campo = 0; campo < campos; ++campo)
            fila << filas.Texto(campo);
        leidas.push_back(std::move(fila));
    }
    return leidas;
}

/// A page of rows that have been read.
std::vector<QStringList> TramoDeFilas(const std::vector<QStringList>& filas, int primera) {
    const auto desde = filas.begin() + primera;
    return {desde, desde + std::min<std::ptrdiff_t>(kFilasPorPagina, filas.end() - desde)};
}

} // namespace

ModeloDeConsulta::ModeloDeConsulta(QList<ColumnaDeGrilla> columnas, QObject* padre)
    : QAbstractTableModel(padre), m_columnas(std::move(columnas)), m_paginas(kPaginasGuardadas) {}

void ModeloDeConsulta::Consulta(Base& base, const QString& sql) {
    std::vector<QStringList> filas = LeeFilas(base, sql);
    const auto cuantas = static_cast<int>(filas.size());
    Muestra(cuantas, [filas = std::move(filas)](int primera) { return TramoDeFilas(filas, primera); });
}

void ModeloDeConsulta::Consulta(Base& base, const ConsultaDeLista& consulta) {
    const ListaLarga lista(base, consulta);
    Muestra(lista.Filas(), [lista](int primera) { return lista.Lee(primera, kFilasPorPagina); });
}

void ModeloDeConsulta::Muestra(int filas, Lectura lectura) {
    beginResetModel();
    m_paginas.clear();
    m_filas = filas;
    m_fallo = false;
    m_lectura = std::move(lectura);
    endResetModel();
}

QString ModeloDeConsulta::Texto(int fila, int campo) const {
    return Fila(fila).value(campo);
}

QStringList ModeloDeConsulta::Fila(int fila) const {
    if (fila < 0 || fila >= m_filas)
        return {};
    const Pagina& pagina = PaginaDe(fila);
    const auto lugar = static_cast<size_t>(fila % kFilasPorPagina);
    return lugar < pagina.size() ? pagina[lugar] : QStringList();
}

const ModeloDeConsulta::Pagina& ModeloDeConsulta::PaginaDe(int fila) const {
    const int numero = fila / kFilasPorPagina;
    if (const Pagina* guardada = m_paginas.object(numero))
        return *guardada;
    auto* leida = new Pagina(m_lectura(numero * kFilasPorPagina)); // the cache owns it
    m_paginas.insert(numero, leida);
    return *leida;
}

// A view asks while it paints, where no exception may pass and no box may open: the cell stays empty, and the failure
// is told once, after the painting.
QStringList ModeloDeConsulta::FilaSinFalla(int fila) const {
    if (m_fallo)
        return {};
    try {
        return Fila(fila);
    } catch (...) {
        m_fallo = true;
        QTimer::singleShot(0, this, Protegido([falla = std::current_exception()] { std::rethrow_exception(falla); }));
        return {};
    }
}

int ModeloDeConsulta::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : m_filas;
}

int ModeloDeConsulta::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_columnas.size());
}

QVariant ModeloDeConsulta::data(const QModelIndex& indice, int papel) const {
    if (!indice.isValid())
        return {};
    const ColumnaDeGrilla& columna = m_columnas.at(indice.column());
    if (papel == Qt::TextAlignmentRole)
        return QVariant::fromValue((columna.derecha ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (papel != Qt::DisplayRole)
        return {};
    const QStringList fila = FilaSinFalla(indice.row());
    const QString texto = columna.texto && !fila.isEmpty() ? columna.texto(fila) : fila.value(columna.campo);
    return columna.mascara.isEmpty() ? texto : Format(texto, columna.mascara);
}

QVariant ModeloDeConsulta::headerData(int seccion, Qt::Orientation sentido, int papel) const {
    if (sentido != Qt::Horizontal)
        return {};
    const ColumnaDeGrilla& columna = m_columnas.at(seccion);
    if (papel == Qt::DisplayRole)
        return columna.titulo;
    if (papel == Qt::TextAlignmentRole)
        return QVariant::fromValue((columna.derecha ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

} // namespace xa518
