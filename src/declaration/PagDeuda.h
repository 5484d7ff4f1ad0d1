#pragma once

#include "declaration/Declaration.h"

#include <QWidget>

#include <array>
#include <memory>

class QLineEdit;

namespace Ui {
class PagDeuda;
}

namespace xa518 {

struct BancoOfrecido;

/// The page "Deuda Tributaria": the six amount boxes, with the arithmetic that runs as the person types, and the
/// payment.
class PagDeuda : public QWidget {
    Q_OBJECT
  public:
    explicit PagDeuda(QWidget* padre = nullptr);
    ~PagDeuda() override;

    void PonBancos(const QList<BancoOfrecido>& bancos);
    /// A sent copy can only be looked at.
    void MuestraEnviada();
    /// Neither can one that somebody else changes.
    void DejaDeCambiar();

    /// The boxes and the payment of the record.
    void Muestra(const Declaracion& declaracion);
    void MuestraMontos(const Montos& montos);

    [[nodiscard]] const Montos& LeeMontos() const { return m_montos; }
    [[nodiscard]] Pago LeePago() const;

    /// Box 402 keeps its displayed format only if it passed through its leave handler: a change of page sees to it.
    void DejaCasilla402();

  Q_SIGNALS:
    /// The person changed something; also by a key that was rejected.
    void Tocado();

  private:
    void ConectaCasilla(int casilla);
    void CambiaCasilla(int casilla, const QString& texto);
    [[nodiscard]] QLineEdit& Campo(int casilla) const;

    std::unique_ptr<Ui::PagDeuda> m_ui;
    std::array<QLineEdit*, kCasillasMonto.size()> m_campos{};
    Montos m_montos;
};

} // namespace xa518
