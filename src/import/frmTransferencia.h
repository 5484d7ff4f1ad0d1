#pragma once

#include "import/ErrorSheet.h"
#include "import/ImportRun.h"
#include "platform/ProfileFile.h"
#include "platform/WorkThread.h"
#include "widgets/Form.h"
#include "widgets/HourGlass.h"

#include <QPointer>
#include <QTimer>

#include <exception>
#include <functional>
#include <memory>

class QTemporaryFile;

namespace Ui {
class frmTransferencia;
}

namespace xa518 {

class Avisos;
class Correccion;
class CorridaAparte;
class DialogosDeArchivo;
class LineasRechazadas;

/// The report of refused lines, which is built in any case.
struct ReporteDeErrores {
    Forma& sobre;
    QString rutaErr;               ///< the error list that it is built from
    bool muestra;                  ///< it is wanted on the screen, too
    std::function<void()> despues; ///< runs behind it, or when it has failed
};

/// What the import dialog takes from others. A function that is missing does nothing.
struct EntornoImportacion {
    ArchivoPerfil perfil; ///< remembers the last folder
    DialogosDeArchivo& archivos;
    std::function<void(const ReporteDeErrores&)> reporte{};
    /// Refreshes the declaration form under the dialog.
    std::function<void()> refresca{};
};

/// The dialog in which a person picks a folder and imports the text file of a declaration, whose work tables are open.
class frmTransferencia final : public Forma {
    Q_OBJECT
  public:
    frmTransferencia(Proceso& proceso, Avisos& avisos, ClaveDeclaracion clave, EntornoImportacion entorno,
                     QWidget* padre = nullptr);
    ~frmTransferencia() override;

  protected:
    void Salir() override;
    void changeEvent(QEvent* evento) override;
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;

  private:
    void Conecta();
    void PreparaBarra();
    [[nodiscard]] const FormatoImportacion& Formato() const;

    void PreparaCarpeta();
    void Examinar();
    [[nodiscard]] QString ArchivoEsperado() const;
    void RecuerdaCarpeta();

    // The run.
    void Transferir();
    /// Asks when these very bytes have been imported already; then goes on with the run.
    void PreguntaSiEsRepetida();
    void ImportaSiQuiere(const std::optional<CorridaTrabajo>& anterior);
    void Procesa(bool prueba);
    void AlTerminar(const std::exception_ptr& falla, bool prueba);
    void Sigue(const ResultadoImportacion& resultado, bool prueba);
    void Abandona(const ResultadoImportacion& resultado);
    void PonCorriendo(bool corriendo);
    void RefrescaLoDebajo() const;
    void MuestraAvance(const AvanceImportacion& avance);
    void MuestraFin(const ResultadoImportacion& resultado);
    void CuentaLoPerdido(const ResultadoImportacion& resultado);
    void CuentaElFin(const ResultadoImportacion& resultado, bool prueba);
    void RecuerdaTotales(const ResultadoImportacion& resultado);
    /// Asks for the totals that a run couldn't bring up to date, as often as the person wants; then `despues`.
    void InsisteEnTotales(const std::function<void()>& despues);
    void SumaDeNuevo(const std::function<void()>& despues);
    void PonEtiquetasEnReposo();

    // The runs that can be undone.
    void Deshacer();
    void OfreceDeshacer();

    // The refused lines of the last run.
    [[nodiscard]] PlanillaErrores* NuevaPlanilla();
    void GuardarErrores();
    void PreparaCorreccion(const ResultadoImportacion& resultado, bool prueba);
    void Corregir();
    void AlImportarCorregidas(Forma& sobre, const ResultadoImportacion& resultado);

    Proceso& m_proceso;
    Avisos& m_avisos;
    ClaveDeclaracion m_clave;
    EntornoImportacion m_entorno;
    std::unique_ptr<Ui::frmTransferencia> m_ui;

    bool m_cancelarRun = false;
    bool m_corriendo = false;    ///< lines are being read, so that the dialog can't go yet
    bool m_yaProcesado = false;  ///< a run was asked for in this opening of the dialog
    QPointer<QWidget> m_conFoco; ///< what had the focus before the run
    std::optional<RelojDeArena> m_reloj;
    QTimer m_ritmo;
    std::optional<Error> m_sinTotales; ///< why the totals lack what the runs so far have imported
    QString m_archivo;                 ///< bare name of the file that the last run was over
    std::unique_ptr<QTemporaryFile> m_errores;
    std::unique_ptr<PlanillaErrores> m_planilla;
    std::shared_ptr<LineasRechazadas> m_rechazadas;
    std::shared_ptr<Correccion> m_correccion;      ///< of these; none while there are none
    const FormatoImportacion* m_formato = nullptr; ///< of the file that the last run was over
    QString m_carpetaDelArchivo;                   ///< likewise, where it lies
    /// The run that is going. Wanted: one that has left its file open counts as going, and holds the file, until the
    /// next run or the way out.
    std::shared_ptr<CorridaAparte> m_enProceso;
    std::unique_ptr<HiloDeTrabajo> m_hilo; ///< the last: its work uses the others
};

} // namespace xa518
