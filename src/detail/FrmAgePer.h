#pragma once

#include "detail/ClientChecks.h"
#include "detail/ClientLayout.h"
#include "detail/DetailContext.h"
#include "widgets/Form.h"
#include "widgets/QueryModel.h"

#include <memory>

namespace Ui {
class FrmAgePer;
}

namespace xa518 {

struct Comprobante;

/// One client of the declaration: who it is, and the grid of its vouchers.
class FrmAgePer : public Forma {
    Q_OBJECT
  public:
    /// Of a new client the row is empty.
    FrmAgePer(EntornoDetalle entorno, ModoDetalle modo, const FilaCliente& fila = {}, QWidget* padre = nullptr);
    ~FrmAgePer() override;

  protected:
    void AlActivar() override;
    void Salir() override;

  private:
    void Cabeceragrilla();
    void PreparaCampos();
    void ConectaBotones();
    void MuestraCliente(const FilaCliente& fila);
    void DesActiva();

    void AlElegirTipoDoc();
    void AlTeclearDocumento();
    void PonDisposicion(Disposicion disposicion);
    void FijaIdentidad();

    void Nuevo();
    void Modificar();
    void Eliminar();
    /// The last delete comes back, if it belongs here.
    void Recupera();
    /// Stores the client; false when a check refused it.
    bool Acepta();

    void AbreComprobante(ModoDetalle modo, const Comprobante& comprobante);
    void LigaGrilla();
    void ActualizaTotales();

    /// Shows what a rule refuses; true when it passed.
    [[nodiscard]] bool Pasa(const VeredictoCliente& veredicto);
    [[nodiscard]] QWidget& Control(CampoCliente campo) const;
    [[nodiscard]] bool EsNuevo() const { return m_modo == ModoDetalle::Nuevo; }
    [[nodiscard]] DatosCliente Datos() const;
    [[nodiscard]] TotalesCliente Totales() const;
    [[nodiscard]] Comprobante Seleccionado() const;

    std::unique_ptr<Ui::FrmAgePer> m_ui;
    EntornoDetalle m_entorno;
    ModoDetalle m_modo;
    ModeloDeConsulta m_comprobantes;
    QString m_ultimoTipo; ///< `lblocul`: the code of the last type picked
    bool m_hayCambiosCliente = false;
};

} // namespace xa518
