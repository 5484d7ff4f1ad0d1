#pragma once

#include "reports/ShowReport.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmPreview;
}

namespace xa518 {

/// The preview of a report: its pages one by one, to look at, to print and to keep as PDF. A missing file is told and
/// leaves an empty sheet; a file that can't be read leaves what there is of it.
class frmPreview final : public Forma {
    Q_OBJECT
  public:
    frmPreview(EntornoInformes entorno, ReportePedido pedido, QWidget* padre = nullptr);
    ~frmPreview() override;

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;

  private:
    /// The numbers are the system's own: -2 goes back and -1 forward. Wanted: any other is a page.
    enum class Direccion { Anterior = -2, Siguiente = -1, Primera = 0 };

    void Lee();
    void MuestraLoLeido();
    void Conecta();
    void ConectaTeclas();
    void LlenaAmpliaciones();

    void Mostrar(Direccion direccion);
    void VaAPagina(int pagina);
    [[nodiscard]] int Ultima() const;

    void Amplia();
    void CambiaAmpliacion(int pasos);
    void AjustaBarras();
    void Desplaza();

    void Imprime();
    void GuardaPdf();

    EntornoInformes m_entorno;
    ReportePedido m_pedido;
    std::shared_ptr<InformeSpool> m_informe;
    int m_paginaVista = 0; ///< from 0
    std::unique_ptr<Ui::frmPreview> m_ui;
};

} // namespace xa518
