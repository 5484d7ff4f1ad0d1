#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QString>
#include <QVariantList>

#include <functional>
#include <vector>

namespace xa518 {

class Base;
struct ConsultaDeLista;

/// A column of a grid: a field of the query under a title.
struct ColumnaDeGrilla {
    QString titulo;
    int campo = 0;
    bool derecha = false;                                       ///< amounts and counts
    QString mascara;                                            ///< how a number shows; empty for the text as it stands
    std::function<QString(const QStringList& fila)> texto = {}; ///< made of several fields of the row, instead of one
};

/// The rows of a query, read-only, as they were when it was run. No statement stays open behind it, which would keep
/// other programs from writing.
class ModeloDeConsulta : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ModeloDeConsulta(QList<ColumnaDeGrilla> columnas, QObject* padre = nullptr);

    /// Runs the query of a short list anew and reads it whole; raises `ErrorBase`, and then the model stays as it was:
    /// a list that can't be read mustn't pass for an empty one.
    void Consulta(Base& base, const QString& sql);
    /// The same over a list that may be long, whose rows are read by pages when they are looked at; any of them is
    /// found at once. The base must outlive the model's use.
    void Consulta(Base& base, const ConsultaDeLista& consulta);

    /// A field of a row as text, also of one that no column shows; empty for a row that isn't there.
    [[nodiscard]] QString Texto(int fila, int campo) const;

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;

  private:
    using Pagina = std::vector<QStringList>;
    using Lectura = std::function<Pagina(int primera)>;

    void Muestra(int filas, Lectura lectura);
    [[nodiscard]] const Pagina& PaginaDe(int fila) const;
    [[nodiscard]] QStringList Fila(int fila) const;
    [[nodiscard]] QStringList FilaSinFalla(int fila) const;

    QList<ColumnaDeGrilla> m_columnas;
    Lectura m_lectura;
    int m_filas = 0;
    mutable QCache<int, Pagina> m_paginas;
    mutable bool m_fallo = false; ///< a page couldn't be read, and it has been told
};

} // namespace xa518
