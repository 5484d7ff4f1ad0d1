#include "import/CorrectionModel.h"

#include "import/CorrectionTexts.h"
#include "import/ImportFormat.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QStyle>
#include <QTextDocument>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// More of a text a cell doesn't show, and it takes long to lay out.
constexpr qsizetype kLargoALaVista = 200;
constexpr qsizetype kAnchoDeTitulo = 15;

/// A light shade of red over the ground, whatever the palette.
QColor FondoDeFalla() {
    const QColor fondo = QApplication::palette().color(QPalette::Base);
    const auto mezcla = [](int deFondo, int deRojo) { return (3 * deFondo + deRojo) / 4; };
    return {mezcla(fondo.red(), 255), mezcla(fondo.green(), 40), mezcla(fondo.blue(), 40)};
}

QFont LetraDeLoNuevo() {
    QFont letra = QApplication::font("QTableView");
    letra.setBold(true);
    return letra;
}

/// In several lines: eighteen long names side by side would take the width of three screens.
QString EnLineas(const QString& titulo) {
    QString lineas;
    qsizetype ancho = 0;
    for (const QString& palabra : titulo.split(u' ')) {
        const bool cabe = ancho + palabra.size() < kAnchoDeTitulo;
        if (!lineas.isEmpty())
            lineas += cabe ? u' ' : u'\n';
        ancho = cabe ? ancho + palabra.size() + 1 : palabra.size();
        lineas += palabra;
    }
    return lineas;
}

QString NombreDeEstado(const Correccion& correccion, int cual) {
    if (correccion.Estado(cual) == EstadoDeLinea::Pasa)
        return u"Pasa"_s;
    return correccion.EstaCorregida(cual) ? u"Corregida"_s : u"Rechazada"_s;
}

} // namespace

ModeloDeCorreccion::ModeloDeCorreccion(Correccion& correccion, QObject* padre)
    : QAbstractTableModel(padre), m_correccion(correccion) {}

void ModeloDeCorreccion::Muestra(const FiltroDeLineas& filtro) {
    beginResetModel();
    m_leida = -1;
    m_lineas = m_correccion.Lineas(filtro);
    endResetModel();
}

QModelIndex ModeloDeCorreccion::Falla(int fila) const {
    const int campo = m_correccion.Falla(Cual(fila)).campo;
    return index(fila, campo < 0 ? int{Estado} : PrimerCampo + campo);
}

void ModeloDeCorreccion::Refresca() {
    m_leida = -1;
    if (!m_lineas.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int ModeloDeCorreccion::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_lineas.size());
}

int ModeloDeCorreccion::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : PrimerCampo + m_correccion.Formato().Campos() + 1;
}

const QStringList& ModeloDeCorreccion::Celdas(int cual) const {
    if (m_leida != cual)
        m_celdas = m_correccion.Celdas(m_correccion.Texto(cual));
    m_leida = cual;
    return m_celdas;
}

QString ModeloDeCorreccion::Texto(int cual, int columna) const {
    return columna == Estado ? NombreDeEstado(m_correccion, cual) : Celdas(cual).at(columna - PrimerCampo);
}

bool ModeloDeCorreccion::EsLaFalla(int cual, int columna) const {
    const int campo = m_correccion.Falla(cual).campo;
    return m_correccion.Estado(cual) == EstadoDeLinea::Rechazada &&
           columna == (campo < 0 ? int{Estado} : PrimerCampo + campo);
}

bool ModeloDeCorreccion::EsNueva(int cual, int columna) const {
    return columna >= PrimerCampo && m_correccion.EstaCorregida(cual, columna - PrimerCampo);
}

QString ModeloDeCorreccion::Sugerencia(int cual, int columna) const {
    return EsLaFalla(cual, columna) ? TextoDeFalla(m_correccion.Falla(cual)) : QString();
}

QVariant ModeloDeCorreccion::data(const QModelIndex& indice, int papel) const {
    if (!indice.isValid())
        return {};
    const int cual = Cual(indice.row());
    const int columna = indice.column();
    switch (papel) {
    case Qt::DisplayRole: return Texto(cual, columna).left(kLargoALaVista);
    case Qt::EditRole: return Texto(cual, columna);
    case Qt::ToolTipRole:
        return EsLaFalla(cual, columna) ? Qt::convertFromPlainText(Sugerencia(cual, columna)) : QVariant();
    case Qt::AccessibleDescriptionRole: return Sugerencia(cual, columna);
    case Qt::BackgroundRole: return EsLaFalla(cual, columna) ? FondoDeFalla() : QVariant();
    case Qt::DecorationRole:
        return EsLaFalla(cual, columna) ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning)
                                        : QVariant();
    case Qt::FontRole: return EsNueva(cual, columna) ? LetraDeLoNuevo() : QVariant();
    default: return {};
    }
}

bool ModeloDeCorreccion::setData(const QModelIndex& indice, const QVariant& valor, int papel) {
    if (papel != Qt::EditRole || !(flags(indice) & Qt::ItemIsEditable))
        return false;
    m_leida = -1;
    m_correccion.PonCelda({Cual(indice.row()), indice.column() - PrimerCampo}, valor.toString());
    Q_EMIT dataChanged(index(indice.row(), 0), index(indice.row(), columnCount() - 1));
    return true;
}

QVariant ModeloDeCorreccion::headerData(int seccion, Qt::Orientation sentido, int papel) const {
    if (papel != Qt::DisplayRole)
        return {};
    if (sentido == Qt::Vertical)
        return m_correccion.Numero(Cual(seccion));
    if (seccion == Estado)
        return u"Estado"_s;
    const auto& campos = m_correccion.Formato().descripciones;
    const int campo = seccion - PrimerCampo;
    if (campo >= m_correccion.Formato().Campos())
        return u"Sobra"_s;
    return EnLineas(u"%1 %2"_s.arg(campo + 1).arg(campos[static_cast<size_t>(campo)].nombre));
}

Qt::ItemFlags ModeloDeCorreccion::flags(const QModelIndex& indice) const {
    const Qt::ItemFlags plenas = QAbstractTableModel::flags(indice);
    const bool seCambia = indice.isValid() && indice.column() >= PrimerCampo &&
                          m_correccion.Estado(Cual(indice.row())) == EstadoDeLinea::Rechazada;
    return seCambia ? plenas | Qt::ItemIsEditable : plenas;
}

} // namespace xa518
