#pragma once

#include "detail/PerceptionRate.h"
#include "detail/QuestionEffects.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PreguntasTasa;
}

namespace xa518 {

class ParDeOpciones;
struct CamposComprobante;

/// The four questions on which the rate of a voucher depends: `OptCpFact`, `OptListado`, `OptVenta` and `OptMedPago`,
/// whose frame never shows. An answer may take others away, by the band of the declared period.
class PreguntasTasa : public QWidget {
    Q_OBJECT
  public:
    explicit PreguntasTasa(QWidget* padre = nullptr);
    ~PreguntasTasa() override;

    /// To be called first: the period decides what is asked at all.
    void PonPeriodo(Periodo declarado, Periodo primerIgv);
    /// The answers of a stored voucher, in the texts of the tables.
    void Muestra(const CamposComprobante& campos);

    [[nodiscard]] Respuestas Lee() const;
    /// The question about the list is live, so that it wants an answer.
    [[nodiscard]] bool ExigeListado() const;
    /// Where the question about the list is answered.
    [[nodiscard]] QWidget& CampoListado() const;

    /// The type of a cash sale answers about the credit by itself, or leaves it to the person.
    void RespondeCredito(const Contestacion& credito);
    /// The answers that decided which payment vouchers were offered stay: about the credit and about the list.
    void FijaCredito();
    /// So does the answer about the means of payment.
    void FijaMedioDePago();
    /// Inside the range of the period the means of payment don't count: to be said at each activation.
    void ApagaMedioDePagoEnRango();
    /// All answers stay.
    void Bloquea();

  Q_SIGNALS:
    /// An answer changed from which the rate is computed.
    void Cambiadas();

  private:
    void AlResponder(Pregunta pregunta, int indice);
    void AplicaEfecto(const EfectoPregunta& efecto);
    void ApagaZona();
    void ActivaCredito(bool activo);
    void ActivaListado(bool activo);
    void ApagaMarcoMedioDePago();

    std::unique_ptr<Ui::PreguntasTasa> m_ui;
    ParDeOpciones* m_cpFact;
    ParDeOpciones* m_listado;
    ParDeOpciones* m_venta;
    ParDeOpciones* m_medPago;
    Banda m_banda = Banda::C;
    bool m_porZona = true;
    bool m_hastaPrimerIgv = false;
};

} // namespace xa518
