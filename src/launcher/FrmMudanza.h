#pragma once

#include "values/Message.h"
#include "widgets/Form.h"

#include <functional>
#include <memory>

namespace Ui {
class FrmMudanza;
}

namespace xa518 {

class Avisos;

/// Where the base is to be moved to: the text of a connection to a server, or the name of a new file.
class FrmMudanza final : public Forma {
    Q_OBJECT
  public:
    enum class Hacia { Servidor, Archivo };
    /// Why the base can't be moved there.
    using Revision = std::function<Veredicto(const QString& destino)>;

    FrmMudanza(Avisos& avisos, Hacia hacia, const QString& propuesto, Revision revisa, QWidget* padre);
    ~FrmMudanza() override;

    /// Empty when the form was left without one.
    [[nodiscard]] const QString& Destino() const { return m_destino; }

  private:
    void Acepta();

    std::unique_ptr<Ui::FrmMudanza> m_ui;
    Avisos* m_avisos;
    Revision m_revisa;
    QString m_destino;
};

} // namespace xa518
