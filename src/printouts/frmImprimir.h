#pragma once

#include "printouts/RunReport.h"
#include "reports/ShowReport.h"
#include "widgets/Form.h"

#include <memory>
#include <optional>

namespace Ui {
class frmImprimir;
}

namespace xa518 {

class BarradeEstadoQMD;
class ModeloDeConsulta;

/// Offers the user's declarations, registered or sent, and shows or prints the one chosen, or its annex.
class frmImprimir final : public Forma {
    Q_OBJECT
  public:
    frmImprimir(Proceso& proceso, EntornoInformes entorno, BarradeEstadoQMD& barra, bool enviadas,
                QWidget* padre = nullptr);
    ~frmImprimir() override;

  protected:
    void Salir() override;

  private:
    void CargaLista();
    void TomaFila(int fila);
    [[nodiscard]] QString Celda(int fila, int columna) const;
    [[nodiscard]] ClaveDeclaracion Clave(int fila) const;

    /// What was chosen, ready to be reported; nothing when it can't be, of which the user has been told.
    [[nodiscard]] std::optional<PedidoDeclaracion> Pedido();
    void Escribe(std::function<void(const PedidoDeclaracion&, const ReportePedido&)> sigue);
    void Preliminar();
    void Imprimir();

    Proceso& m_proceso;
    EntornoInformes m_entorno;
    BarradeEstadoQMD& m_barra;
    bool m_enviadas;
    std::unique_ptr<Ui::frmImprimir> m_ui;
    ModeloDeConsulta* m_dta1;
};

} // namespace xa518
