#pragma once

#include "detail/CashSaleQuestion.h"
#include "detail/DetailContext.h"
#include "detail/PerceptionRate.h"
#include "detail/VoucherChecks.h"
#include "form518/WorkPayments.h"
#include "widgets/FieldFocus.h"
#include "widgets/Form.h"
#include "widgets/QueryModel.h"

#include <memory>

namespace Ui {
class FrmDetAgePer;
}

namespace xa518 {

/// One perception voucher of a client, or a cash sale, with the rate that the answers give.
class FrmDetAgePer : public Forma {
    Q_OBJECT
  public:
    /// Of a new voucher only the client is filled.
    FrmDetAgePer(EntornoDetalle entorno, ModoDetalle modo, const Comprobante& comprobante, QWidget* padre = nullptr);
    ~FrmDetAgePer() override;

  protected:
    void AlActivar() override;
    void Salir() override;

  private:
    // Opening.
    void PreparaGrilla();
    void PreparaCampos();
    void PreparaMonto();
    void ConectaBotones();
    void ConectaPreguntas();
    void Abre(const Comprobante& comprobante);
    void MuestraComprobante(const Comprobante& comprobante);
    void MuestraCampos(const CamposComprobante& campos);
    void DesActiva();

    // Questions and fields, and the amounts that follow them.
    void AlCambiarClase(PreguntaContado::Cambio cambio);
    void AlElegirTipoCP();
    [[nodiscard]] Salida AlDejarFecha();
    void IniciaIgv();
    void CalculaMontos();

    // The payment vouchers behind it.
    void LigaGrilla();
    void NuevoPago();
    void ModificarPago();
    void EliminarPago();
    /// The last delete comes back, if it belongs here.
    void RecuperaPago();
    void AbrePago(ModoDetalle modo, const ComprobanteDePago& pago);
    void Deshabilita_Percepcion();
    void FijaClase();
    [[nodiscard]] bool SinPagos() const { return m_pagos.rowCount() == 0; }
    [[nodiscard]] ComprobanteDePago Seleccionado() const;

    /// Stores the voucher; false when a check refused it.
    bool Acepta();
    void AvisaSoloNotasDeCredito();
    [[nodiscard]] bool PreguntaSinPagos();
    [[nodiscard]] VeredictoComprobante Valida() const;
    /// Shows what a rule refuses; true when it passed.
    [[nodiscard]] bool Pasa(const VeredictoComprobante& veredicto);
    [[nodiscard]] QWidget& Control(CampoComprobante campo) const;

    [[nodiscard]] bool EsNuevo() const { return m_modo == ModoDetalle::Nuevo; }
    [[nodiscard]] ClaveComprobante Clave() const;
    [[nodiscard]] DatosComprobante Datos() const;

    std::unique_ptr<Ui::FrmDetAgePer> m_ui;
    EntornoDetalle m_entorno;
    ModoDetalle m_modo;
    ClaveCliente m_cliente;
    TasaPercepcion m_tasa;
    ModeloDeConsulta m_pagos;

    Periodo m_periodoEmision;  ///< none until the date was left
    QString m_tasaIgv;         ///< read by nobody: docs/decisions/rituals-kept.md
    bool m_hayCambios = false; ///< wanted: set by keys, never cleared
    bool m_abriendo = true;
};

} // namespace xa518
