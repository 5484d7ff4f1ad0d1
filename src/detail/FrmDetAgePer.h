#pragma once

#include "detail/PerceptionRate.h"
#include "detail/QuestionEffects.h"
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

class Avisos;
class ParDeOpciones;
struct Proceso;

/// One perception voucher of a client, or a cash sale, with the rate that the answers give. `Proceso::modoDetalle` says
/// whether it is a new one, `Proceso::enviadas` whether it is only looked at.
class FrmDetAgePer : public Forma {
    Q_OBJECT
  public:
    /// Of a new voucher only the client is filled.
    FrmDetAgePer(Proceso& proceso, Avisos& avisos, const Comprobante& comprobante, QWidget* padre = nullptr);
    ~FrmDetAgePer() override;

  protected:
    void AlActivar() override;
    void Salir() override;

  private:
    void PreparaPreguntas();
    void PreparaGrilla();
    void PreparaCampos();
    void PreparaMonto();
    void ConectaBotones();
    void ConectaPreguntas();

    void Abre(const Comprobante& comprobante);
    void MuestraComprobante(const Comprobante& comprobante);
    void MuestraCampos(const CamposComprobante& campos);
    void BloqueaRespuestas();
    void ApagaZona();
    void DesActiva();

    void AlResponderContado(int indice);
    void AlElegirTipoCP();
    void AlResponder(Pregunta pregunta, int indice);
    void AplicaEfecto(const EfectoPregunta& efecto);
    void ActivaCredito(bool activo);
    void ActivaListado(bool activo);
    void ActivaTipoCP(bool activo);
    [[nodiscard]] Salida AlDejarFecha();
    void CalculaMontos();
    void IniciaIgv();

    void NuevoPago();
    void ModificarPago();
    void EliminarPago();
    void AbrePago(const ComprobanteDePago& pago);
    void Deshabilita_Percepcion();
    void FijaClase();
    void LigaGrilla();

    /// Stores the voucher; false when a check refused it.
    bool Acepta();
    void AvisaSoloNotasDeCredito();
    [[nodiscard]] bool PreguntaSinPagos();
    /// Kept for its place; nothing calls it.
    [[nodiscard]] static bool ValidaFechaOrigen() { return true; }

    [[nodiscard]] bool EsNuevo() const;
    [[nodiscard]] bool EnRangoPrimerIgv() const;
    [[nodiscard]] bool SinPagos() const { return m_pagos.rowCount() == 0; }
    [[nodiscard]] ClaveComprobante Clave() const;
    [[nodiscard]] DatosComprobante Datos() const;
    [[nodiscard]] Respuestas LasRespuestas() const;
    [[nodiscard]] VeredictoComprobante Valida() const;
    /// Shows what a rule refuses; true when it passed.
    [[nodiscard]] bool Pasa(const VeredictoComprobante& veredicto);
    [[nodiscard]] QWidget& Control(CampoComprobante campo) const;
    [[nodiscard]] ComprobanteDePago Seleccionado() const;

    std::unique_ptr<Ui::FrmDetAgePer> m_ui;
    Proceso* m_proceso;
    Avisos* m_avisos;
    ClaveCliente m_cliente;
    Banda m_banda;
    TasaPercepcion m_tasa;
    ModeloDeConsulta m_pagos;
    ParDeOpciones* m_contado = nullptr;
    ParDeOpciones* m_cpFact = nullptr;
    ParDeOpciones* m_listado = nullptr;
    ParDeOpciones* m_venta = nullptr;
    ParDeOpciones* m_medPago = nullptr;
    QString m_tipoCP;          ///< code of `CmbTipoCP`, empty until one is picked
    Periodo m_periodoEmision;  ///< none until the date was left
    QString m_tasaIgv;         ///< wanted: computed and kept, read by nobody
    bool m_hayCambios = false; ///< wanted: set by keys, never cleared
    bool m_abriendo = true;
};

} // namespace xa518
