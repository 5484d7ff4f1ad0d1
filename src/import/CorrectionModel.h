#pragma once

#include "import/Correction.h"

#include <QAbstractTableModel>

namespace xa518 {

/// The lines that are looked at, a row each, headed by its number: how it stands, and its fields, which can be changed
/// as long as it doesn't pass. The cell at fault has a colour and a sign, and its reason as tip and for a screen
/// reader.
class ModeloDeCorreccion final : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// Behind the state come the fields, and what a line has beyond its last field.
    enum Columna : int { Estado, PrimerCampo };

    /// The correction must outlive the model.
    ModeloDeCorreccion(Correccion& correccion, QObject* padre);

    void Muestra(const FiltroDeLineas& filtro);
    /// The line of a row.
    [[nodiscard]] int Cual(int fila) const { return m_lineas.at(fila); }
    /// Where the fault of a row's line stands.
    [[nodiscard]] QModelIndex Falla(int fila) const;

    /// These were changed from outside.
    void Refresca();

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    bool setData(const QModelIndex& indice, const QVariant& valor, int papel) override;
    [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& indice) const override;

  private:
    [[nodiscard]] const QStringList& Celdas(int cual) const;
    [[nodiscard]] QString Texto(int cual, int columna) const;
    [[nodiscard]] bool EsLaFalla(int cual, int columna) const;
    [[nodiscard]] bool EsNueva(int cual, int columna) const;
    [[nodiscard]] QString Sugerencia(int cual, int columna) const;

    Correccion& m_correccion;
    QList<int> m_lineas;
    mutable int m_leida = -1; ///< the line whose cells are at hand: a row is painted cell by cell
    mutable QStringList m_celdas;
};

} // namespace xa518
