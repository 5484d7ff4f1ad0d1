#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QStringList>

#include <functional>

namespace xa518 {

/// The rows of a list: by what each is known again after the list has been read anew, and what its cells say, which is
/// asked when the row shows.
struct FilasDeLista {
    QStringList claves;
    std::function<QStringList(qsizetype fila)> celdas;
};

/// Such rows under their titles, however many there are.
class ModeloDeFilas final : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ModeloDeFilas(QObject* padre = nullptr);

    void PonTitulos(const QStringList& titulos);
    /// Other rows.
    void Pon(FilasDeLista filas);
    /// The same rows, whose cells may say something else.
    void Renueva(FilasDeLista filas);

    [[nodiscard]] const QStringList& Claves() const { return m_filas.claves; }

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;

  private:
    QStringList m_titulos;
    FilasDeLista m_filas;
    mutable QCache<int, QStringList> m_celdas; ///< of the rows that showed last
};

} // namespace xa518
