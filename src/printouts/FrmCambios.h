#pragma once

#include "family/Process.h"
#include "printouts/ChangesReport.h"
#include "reports/ShowReport.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class FrmCambios;
}

namespace xa518 {

/// Shows what differs from a sent copy, box by box and client by client, to be looked at and printed.
class FrmCambios final : public Forma {
    Q_OBJECT
  public:
    /// What the report is written with is the base that `aparte` opens.
    FrmCambios(ProcesoAparte aparte, EntornoInformes entorno, DatosCambios datos, QWidget* padre = nullptr);
    ~FrmCambios() override;

  private:
    void MuestraCasillas();
    void MuestraClientes();
    [[nodiscard]] QStringList CeldasDe(const ClienteComparado& cliente) const;
    [[nodiscard]] QString Resumen() const;
    void Preliminar();

    ProcesoAparte m_aparte;
    EntornoInformes m_entorno;
    DatosCambios m_datos;
    std::unique_ptr<Ui::FrmCambios> m_ui;
};

} // namespace xa518
