#pragma once

#include "widgets/ReadGrid.h"

#include <QList>
#include <QStringList>

class QStandardItemModel;

namespace xa518 {

/// A row of a list: its cells, and the text by which it is known again after the list has been read anew.
struct FilaDeLista {
    QString clave;
    QStringList celdas;

    bool operator==(const FilaDeLista&) const = default;
};

/// A list to choose a row from. Read anew it keeps the chosen row, or its place when the row is gone. Its columns are
/// as wide as what they hold; one that the person made wider stays so.
class TablaFilas : public GrillaDeLectura {
    Q_OBJECT
  public:
    explicit TablaFilas(QWidget* padre = nullptr);

    void PonColumnas(const QStringList& titulos);
    void Llena(const QList<FilaDeLista>& filas);

    void Elige(const QString& clave);

  Q_SIGNALS:
    void Cambia();   ///< another row is the chosen one, or the same one has other cells
    void Decidida(); ///< Enter or a double click

  private:
    void PonFilas();
    void EligeFila(qsizetype fila);
    [[nodiscard]] qsizetype Busca(const QString& clave) const;
    void EnsanchaColumnas();

    QStandardItemModel* m_modelo;
    QList<FilaDeLista> m_filas;
};

} // namespace xa518
