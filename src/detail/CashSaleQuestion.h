#pragma once

#include "detail/PerceptionRate.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PreguntaContado;
}

namespace xa518 {

class ParDeOpciones;

/// The question whether a voucher is a cash sale, `OptVentaCont`, and of which type the payment voucher is that stands
/// for it, `CmbTipoCP`.
class PreguntaContado : public QWidget {
    Q_OBJECT
  public:
    explicit PreguntaContado(QWidget* padre = nullptr);
    ~PreguntaContado() override;

    void PonTipos(const QStringList& items);
    /// Answers as the key of a stored voucher does: with a type it is a cash sale.
    void Muestra(const QString& tipCp);
    void Contesta(bool contado);
    /// From here on the answer stays.
    void Bloquea();

    [[nodiscard]] Contestacion Contado() const;
    [[nodiscard]] bool EsContado() const { return Contado() == true; }
    /// Nobody has said that it is a cash sale, and somebody that it isn't.
    [[nodiscard]] bool EsOrdinario() const { return Contado() == false; }
    /// Two digits, empty until one is picked.
    [[nodiscard]] QString Tipo() const;
    /// Where the type is picked.
    [[nodiscard]] QWidget& CampoTipo() const;

    enum class Cambio { Contado, Tipo };

  Q_SIGNALS:
    /// The question was answered, or a type picked.
    void Cambiada(Cambio cambio);

  private:
    void AlContestar(bool contado);
    void AlElegirTipo();
    void ActivaTipo(bool activo);

    std::unique_ptr<Ui::PreguntaContado> m_ui;
    ParDeOpciones* m_contado;
};

} // namespace xa518
