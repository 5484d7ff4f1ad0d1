#pragma once

#include "detail/DetailContext.h"
#include "detail/VoucherChecks.h"
#include "form518/WorkPayments.h"
#include "widgets/FieldFocus.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmPerDet;
}

namespace xa518 {

/// One payment voucher behind a perception voucher. Opened for a new one it stays open after each save, for the next.
class frmPerDet : public Forma {
    Q_OBJECT
  public:
    /// Of a new payment voucher only the perception voucher is filled. `lblTipo` decides which types are offered.
    frmPerDet(EntornoDetalle entorno, ModoDetalle modo, const ComprobanteDePago& pago, QString lblTipo,
              QWidget* padre = nullptr);
    ~frmPerDet() override;

  Q_SIGNALS:
    /// A payment voucher was stored.
    void Guardado();

  protected:
    void Salir() override;

  private:
    void PreparaCampos();
    void PreparaMonto();
    void ConectaBotones();
    void CargaTipoDoc();
    void MuestraPago(const ComprobanteDePago& pago);
    void LimpiaCampos();

    void AlElegirTipoDoc();
    [[nodiscard]] Salida AlDejarFecha();

    /// Stores the payment voucher; false when a check refused it.
    bool Acepta();
    void AlAceptar();

    [[nodiscard]] bool EsNuevo() const { return m_modo == ModoDetalle::Nuevo; }
    [[nodiscard]] bool SoloVer() const { return m_modo == ModoDetalle::Ver; }
    [[nodiscard]] DatosPago Datos() const;
    [[nodiscard]] ClavePago Clave() const;
    [[nodiscard]] std::optional<VeredictoComprobante> FechaOrigen() const;
    /// Shows what a rule refuses; true when it passed.
    [[nodiscard]] bool Pasa(const std::optional<VeredictoComprobante>& veredicto);
    [[nodiscard]] QWidget& Control(CampoComprobante campo) const;

    std::unique_ptr<Ui::frmPerDet> m_ui;
    EntornoDetalle m_entorno;
    ModoDetalle m_modo;
    ClaveComprobante m_comprobante;
    QString m_lblTipo;
    bool m_hayCambiosPago = false;
    bool m_cargando = true;
};

} // namespace xa518
