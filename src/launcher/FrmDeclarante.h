#pragma once

#include "launcher/Declarants.h"
#include "widgets/Form.h"

#include <functional>
#include <memory>

namespace Ui {
class FrmDeclarante;
}

namespace xa518 {

class Avisos;

/// A declarant's number, name and owner. One who is there already keeps his number.
class FrmDeclarante final : public Forma {
    Q_OBJECT
  public:
    using Escritura = std::function<VeredictoDeclarante(const Declarante&)>;

    /// `inicial` without a number stands for a new declarant.
    FrmDeclarante(Avisos& avisos, const Declarante& inicial, const QStringList& usuarios, Escritura escribe,
                  QWidget* padre);
    ~FrmDeclarante() override;

    /// The number of the declarant who was written; nothing when the form was left without it.
    [[nodiscard]] const std::optional<Ruc>& Guardado() const { return m_guardado; }

  private:
    void Muestra(const Declarante& inicial, const QStringList& usuarios);
    void Acepta();
    [[nodiscard]] QWidget& Control(CampoDeclarante campo) const;

    std::unique_ptr<Ui::FrmDeclarante> m_ui;
    Avisos* m_avisos;
    Escritura m_escribe;
    std::optional<Ruc> m_guardado;
};

} // namespace xa518
