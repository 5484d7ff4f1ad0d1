#pragma once

#include "detail/ClientChecks.h"
#include "detail/ClientLayout.h"
#include "widgets/Form.h"
#include "widgets/QueryModel.h"

#include <memory>
#include <optional>

namespace Ui {
class FrmAgePer;
}

namespace xa518 {

class Avisos;
struct Comprobante;
struct Proceso;

/// One client of the declaration: who it is, and the grid of its vouchers. `Proceso::opcionDetalle` says whether it is
/// a new one or the row handed over, `Proceso::enviadas` whether it is only looked at.
class FrmAgePer : public Forma {
    Q_OBJECT
  public:
    /// `mkePeriodo` is the declared period as the declaration's field shows it, `mm/yyyy`.
    FrmAgePer(Proceso& proceso, Avisos& avisos, const QString& mkePeriodo,
              const std::optional<FilaCliente>& fila = std::nullopt, QWidget* padre = nullptr);
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
    /// Stores the client; false when a check refused it.
    bool Acepta();

    void AbreComprobante(const Comprobante& comprobante);
    void LigaGrilla();
    void ActualizaTotales();

    /// Shows what a rule refuses; true when it passed.
    [[nodiscard]] bool Pasa(const VeredictoCliente& veredicto);
    [[nodiscard]] QWidget& Control(CampoCliente campo) const;
    [[nodiscard]] bool EsNuevo() const;
    [[nodiscard]] DatosCliente Datos() const;
    [[nodiscard]] TotalesCliente Totales() const;
    [[nodiscard]] Comprobante Seleccionado() const;

    std::unique_ptr<Ui::FrmAgePer> m_ui;
    Proceso* m_proceso;
    Avisos* m_avisos;
    ModeloDeConsulta m_comprobantes;
    QString m_ultimoTipo; ///< `lblocul`: the code of the last type picked
    bool m_hayCambiosCliente = false;
};

} // namespace xa518
