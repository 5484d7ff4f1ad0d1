#pragma once

#include "data/Catalog.h"

#include <QList>
#include <QString>
#include <QWidget>

class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace xa518 {

/// The family's payment control: cash, or a cheque with its bank and number, and the amount to pay.
/// Texts are handed out trimmed.
class FormaDePagoQMD : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString FormaPago READ FormaPago WRITE PonFormaPago)
    Q_PROPERTY(QString Banco READ Banco WRITE PonBanco)
    Q_PROPERTY(QString NumeroCheque READ NumeroCheque WRITE PonNumeroCheque)
    Q_PROPERTY(QString ImportePagar READ ImportePagar WRITE PonImportePagar)
    Q_PROPERTY(QString Enviado READ Enviado WRITE PonEnviado)
  public:
    explicit FormaDePagoQMD(QWidget* padre = nullptr);

    /// The banks to choose from. The one chosen before stays chosen.
    void PonBancos(const QList<BancoOfrecido>& bancos);

    /// "E" cash, "C" cheque, "X" no choice yet.
    [[nodiscard]] QString FormaPago() const;
    void PonFormaPago(const QString& forma);

    /// The bank's code, "XX" when none is chosen. A code that the list lacks is kept and shown by itself.
    [[nodiscard]] QString Banco() const;
    void PonBanco(const QString& codigo);

    [[nodiscard]] QString NumeroCheque() const;
    void PonNumeroCheque(const QString& numero);

    [[nodiscard]] QString ImportePagar() const;
    void PonImportePagar(const QString& importe);

    /// Kept for the view of a sent declaration, which puts "0" here. It shows nowhere.
    [[nodiscard]] QString Enviado() const { return m_enviado; }
    void PonEnviado(const QString& valor) { m_enviado = valor; }

  Q_SIGNALS:
    /// The person changed something; never by a property set by the program.
    void Cambiado();

  private:
    void Nombra();
    void Compone();
    void Conecta();
    void EligeForma();
    void ActivaCheque();

    QRadioButton* m_efectivo;
    QRadioButton* m_cheque;
    QButtonGroup* m_opciones;
    QComboBox* m_banco;
    QLineEdit* m_numero;
    QLabel* m_importe;
    QString m_enviado;
};

} // namespace xa518
