#pragma once

#include "detail/VoucherChecks.h"
#include "form518/WorkPayments.h"
#include "widgets/FieldFocus.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmPerDet;
}

namespace xa518 {

class Avisos;
struct Proceso;

/// One payment voucher behind a perception voucher. `Proceso::modoPago` says whether it is a new one: then the dialog
/// stays open after each save for the next. `Proceso::enviadas` says whether it is only looked at.
class frmPerDet : public Forma {
    Q_OBJECT
  public:
    /// Of a new payment voucher only the perception voucher is filled. `lblTipo` decides which types are offered.
    frmPerDet(Proceso& proceso, Avisos& avisos, const ComprobanteDePago& pago, QString lblTipo,
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
    /// Kept for its place; nothing calls it.
    bool ValidaFecha();

    [[nodiscard]] bool EsNuevo() const;
    [[nodiscard]] DatosPago Datos() const;
    [[nodiscard]] ClavePago Clave() const;
    [[nodiscard]] std::optional<VeredictoComprobante> FechaOrigen() const;
    /// Shows what a rule refuses; true when it passed.
    [[nodiscard]] bool Pasa(const std::optional<VeredictoComprobante>& veredicto);
    [[nodiscard]] QWidget& Control(CampoComprobante campo) const;

    std::unique_ptr<Ui::frmPerDet> m_ui;
    Proceso* m_proceso;
    Avisos* m_avisos;
    ClaveComprobante m_comprobante;
    QString m_lblTipo;
    bool m_hayCambiosPago = false;
    bool m_cargando = true;
};

} // namespace xa518
