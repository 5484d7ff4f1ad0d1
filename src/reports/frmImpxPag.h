#pragma once

#include "reports/ShowReport.h"
#include "widgets/Form.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmImpxPag;
}

namespace xa518 {

/// Asks which pages of a long report are to be printed, and opens its preview. It stays open under the preview, so that
/// another range can be tried.
class frmImpxPag final : public Forma {
    Q_OBJECT
  public:
    /// What the caller tells of the report.
    struct Paginas {
        int total = 0;
        QString titulo; ///< of the window
    };

    frmImpxPag(EntornoInformes entorno, ReportePedido pedido, const Paginas& paginas, QWidget* padre = nullptr);
    ~frmImpxPag() override;

  private:
    void Preliminar();

    EntornoInformes m_entorno;
    ReportePedido m_pedido;
    int m_total;
    std::unique_ptr<Ui::frmImpxPag> m_ui;
};

} // namespace xa518
