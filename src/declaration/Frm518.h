#pragma once

#include "declaration/ChosenDeclaration.h"
#include "declaration/ClientGrid.h"
#include "declaration/CopyOfMonth.h"
#include "declaration/Declaration.h"
#include "declaration/Safekeeping.h"
#include "declaration/TakenTables.h"
#include "declaration/TaxPeriod.h"
#include "form518/WorkClients.h"
#include "values/Message.h"
#include "widgets/FieldFocus.h"
#include "widgets/Form.h"
#include "widgets/LongTask.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class Frm518;
}

namespace xa518 {

class Avisos;
class Base;
class BarradeEstadoQMD;
struct LoEscrito;
struct PaginasDeDeclaracion;
struct Proceso;
struct ResultadoGrabacion;

/// What the import goes into: the declaration, and the form that shows it.
struct ImportacionPedida {
    ClaveDeclaracion clave;
    QString nombre;                 ///< of the declarant, as the form shows it
    std::function<void()> refresca; ///< shows the form's grid anew, and tells nothing when it can't
};

/// The client that a dialog opens on.
struct ClientePedido {
    ClaveDeclaracion clave;
    std::optional<FilaCliente> cliente;
    bool soloSeMira = false;
};

/// The dialogs of other rooms that the declaration form opens over itself. One that is missing does nothing.
struct DialogosDeDetalle {
    /// The client dialog: on a row of the grid, or on none for a new client. What may not be changed is only looked at.
    std::function<void(Forma& sobre, const ClientePedido& pedido)> abreCliente;
    /// The import into the work tables of that declaration.
    std::function<void(Forma& sobre, const ImportacionPedida& pedida)> abreImportacion;
    /// What differs from the sent copy of its month.
    std::function<void(Forma& sobre, const PedidoDeComparacion& pedido)> abreCambios;
};

/// What a declaration form works with.
struct EntornoDeclaracion {
    Proceso& proceso;
    Avisos& avisos;
    BarradeEstadoQMD& barra;
    DialogosDeDetalle dialogos{};
};

/// The window in which a declaration is filled in, reviewed and corrected.
class Frm518 : public Forma {
    Q_OBJECT
  public:
    /// On the declaration that was picked; without one on a new declaration. Its rows stand in the work tables, which
    /// are the form's while it lives. Raises `ErrorBase`.
    Frm518(EntornoDeclaracion entorno, TablasTomadas tablas,
           const std::optional<DeclaracionElegida>& elegida = std::nullopt, QWidget* padre = nullptr);
    ~Frm518() override;

    /// In a new declaration: chooses the declarant and the month of that sent copy and offers to bring it, as if they
    /// had been typed.
    void Rectifica(const ClaveDeclaracion& enviada) { m_copia->Rectifica(enviada); }

  protected:
    void AlActivar() override;
    void Salir() override;

  private:
    [[nodiscard]] bool EsNueva() const { return m_modo == ModoDeclaracion::Nueva; }
    [[nodiscard]] bool EsEnviada() const { return m_modo == ModoDeclaracion::Ver; }
    [[nodiscard]] bool SoloSeMira() const { return !m_elegida.soloSeMira.isEmpty(); }
    [[nodiscard]] bool EsFija() const { return EsEnviada() || SoloSeMira(); }
    [[nodiscard]] Base& BaseDatos() const;

    // Opening.
    void Carga();
    void CargaIdent();
    void CargaCasillasDeLaClave();
    void DesTodo();
    void MuestraParaMirar();
    void Conecta();
    void ConectaPaginas();

    // What outlives the program.
    void Retoma(const LoEscrito& escrito);
    [[nodiscard]] SinGrabar Retrato() const;
    void Cambia();

    // What is on the pages, and showing it.
    [[nodiscard]] ClaveDeclaracion Clave() const;
    [[nodiscard]] PaginasDeDeclaracion LasPaginas() const;
    void LeePaginas();
    void RefrescaGrilla(std::function<void()> despues = {});
    void RefrescaSinPalabras();
    void LeeTotalesDeGrilla(TareaPedida pedida, std::function<void()> despues);
    void VuelveAIdentificacion();
    /// Shows a refusal and puts the person on the field at fault.
    [[nodiscard]] bool Acata(const std::optional<VeredictoDeclaracion>& veredicto);
    [[nodiscard]] bool IdentificacionVale();

    // Handlers.
    void AlCambiarRazon();
    void AlElegirDeclarante(const QString& nombre);
    [[nodiscard]] std::optional<VeredictoDeclaracion> PeriodoDejado();
    [[nodiscard]] Salida AlDejarPeriodo();
    void OfreceCopia();
    void AlRectificar(bool si);
    void AlCambiarPestania(int nueva);
    [[nodiscard]] bool PestaniaVale(int nueva);
    [[nodiscard]] bool TomaLaClave();
    [[nodiscard]] bool ClaveVale(int nueva);
    void Opcion(int indice);
    [[nodiscard]] bool AtiendeOpcion(int indice);
    [[nodiscard]] bool EliminaCliente();

    // The buttons.
    void Valida();
    void QueCambia();
    /// `despues` runs when the declaration is saved, or its save was refused; not after a failure or a stop.
    void Graba(const std::function<void()>& despues = {});
    void GrabaTodo(const std::function<void()>& despues);
    void AlGrabar(const ResultadoGrabacion& grabacion, const std::function<void()>& despues);
    void RegistraOrden();
    void Deja();

    Proceso& m_proceso;
    Avisos& m_avisos;
    BarradeEstadoQMD& m_barra;
    DialogosDeDetalle m_dialogos;
    ModoDeclaracion m_modo;
    DeclaracionElegida m_elegida; ///< empty in a new declaration
    std::unique_ptr<Ui::Frm518> m_ui;

    std::optional<CopiaDelMes> m_copia; ///< once the controls are there

    TablasTomadas m_tablas; ///< this form's while it lives
    Resguardo m_resguardo;
    Declaracion m_declaracion;
    bool m_modificado = false; ///< changed by the person since the load or the last save
    bool m_cargando = true;    ///< silences the reminder of the rectification
    bool m_volviendo = false;  ///< a refusal is taking the person back to the first page
};

} // namespace xa518
