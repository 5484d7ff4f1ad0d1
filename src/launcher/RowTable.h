#pragma once

#include "launcher/RowModel.h"
#include "widgets/ReadGrid.h"

namespace xa518 {

/// A list to choose a row from. Read anew it keeps the chosen row, or its place when the row is gone. Its columns are
/// as wide as what they hold; one that the person made wider stays so.
class TablaFilas : public GrillaDeLectura {
    Q_OBJECT
  public:
    explicit TablaFilas(QWidget* padre = nullptr);

    void PonColumnas(const QStringList& titulos);
    void Llena(FilasDeLista filas);

    void Elige(const QString& clave);

  Q_SIGNALS:
    void Cambia();   ///< another row is the chosen one, or the same one may have other cells
    void Decidida(); ///< Enter or a double click

  private:
    void EligeFila(qsizetype fila);
    [[nodiscard]] qsizetype Busca(const QString& clave) const;
    void EnsanchaColumnas();

    ModeloDeFilas* m_modelo;
};

} // namespace xa518
