#pragma once

#include "reports/Printing.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmImpresora;
}

namespace xa518 {

/// Asks on which of several printers a report is printed, the default one being preselected, or whether it is kept as
/// PDF instead.
class frmImpresora final : public Forma {
    Q_OBJECT
  public:
    enum class Destino { Ninguno, Cola, Pdf };

    explicit frmImpresora(QList<ColaImpresion> colas, QWidget* padre = nullptr);
    ~frmImpresora() override;

    /// What was chosen; none when the form was left.
    [[nodiscard]] Destino Elegido() const { return m_elegido; }
    /// The printer that was chosen.
    [[nodiscard]] const ColaImpresion& Cola() const;

  private:
    void LlenaLista();
    void Elige(Destino destino);

    QList<ColaImpresion> m_colas;
    Destino m_elegido = Destino::Ninguno;
    std::unique_ptr<Ui::frmImpresora> m_ui;
};

} // namespace xa518
