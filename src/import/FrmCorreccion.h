#pragma once

#include "family/DeclarationKey.h"
#include "import/CorrectionModel.h"
#include "import/CorrectionRun.h"
#include "widgets/Form.h"

#include <functional>
#include <memory>

namespace Ui {
class FrmCorreccion;
}

namespace xa518 {

class Avisos;
class DialogosDeArchivo;
struct Proceso;

/// What the dialog that puts lines right takes from others.
struct EntornoCorreccion {
    Proceso& proceso;
    Avisos& avisos;
    DialogosDeArchivo& archivos;
    ClaveDeclaracion clave;
    QString carpeta; ///< in which the search for a folder to save in begins
    /// Behind each import, whose result it gets, also of one that was stopped.
    std::function<void(Forma& sobre, const ResultadoImportacion&)> alImportar;
};

/// The dialog in which a person puts refused lines right, tries them and imports them. What passes leaves the list. The
/// correction outlives the dialog: an opening goes on where the one before has ended.
class FrmCorreccion final : public Forma {
    Q_OBJECT
  public:
    FrmCorreccion(EntornoCorreccion entorno, std::shared_ptr<Correccion> correccion, QWidget* padre = nullptr);
    ~FrmCorreccion() override;

  protected:
    void AlActivar() override;
    void Salir() override;

  private:
    void Conecta();

    // What shows.
    void LlenaFiltro();
    [[nodiscard]] FiltroDeLineas Filtro() const;
    void MuestraLineas();
    void MuestraActual();
    void MuestraCelda();
    void PermiteOrdenes();
    /// The current line, -1 for none.
    [[nodiscard]] int Cual() const;
    void VaA(int fila);

    // What is done to the lines.
    /// Keeps what is being typed.
    void Asienta();
    void PonLinea();
    void Siguiente();
    void Aplicar();
    void VuelveAlOriginal();

    void Corre(bool prueba);
    void AlTerminar(const DesenlaceDeCorreccion& desenlace, bool prueba);
    void Guardar();

    EntornoCorreccion m_entorno;
    std::shared_ptr<Correccion> m_correccion;
    ModeloDeCorreccion m_modelo;
    std::unique_ptr<Ui::FrmCorreccion> m_ui;
};

} // namespace xa518
