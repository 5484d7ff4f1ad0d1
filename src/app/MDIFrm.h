#pragma once

#include "app/Dialogs.h"
#include "app/FormaSeleccion.h"
#include "platform/ProfileFile.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class MDIFrm;
}

namespace xa518 {

class Ayuda;

/// The module's main window. It has no work of its own: each command opens a form and tells it what it is for.
class MDIFrm final : public QMainWindow {
    Q_OBJECT
  public:
    /// What is passed by reference must outlive the window.
    MDIFrm(Proceso& proceso, Avisos& avisos, ArchivoPerfil perfil, Dialogos dialogos);
    ~MDIFrm() override;

    /// Shows the window, reads the configuration and opens the base, in this order. False when the base couldn't be
    /// opened, which it has told then above the empty window: the process ends.
    [[nodiscard]] bool Carga();

    /// Opens a new declaration of the month of that sent copy, and offers to bring the copy into it.
    void Rectifica(const ClaveDeclaracion& enviada);

    [[nodiscard]] BarradeEstadoQMD& Barra() const;

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;

  private:
    enum class BotonBarra { Nueva = 1, Modificar, Eliminar, Imprimir, Salir, Registrar = 7, Ayuda = 10 };

    void Coloca();
    void PreparaBarra();
    void ConectaMenu();
    void PulsaBarra(BotonBarra boton);
    [[nodiscard]] bool AbreLaBase();
    void ImpideEscribir();
    void OfreceRetomar();

    void Nueva();
    void Modificar();
    void Eliminar();
    void Retomar();
    void Imprimir();
    void ImprimirDe(bool enviadas);
    void ModificarE();
    void EliminarE();
    void ImprimirE();
    void Bancos();
    void MostrarHelp();
    void Acercade();

    [[nodiscard]] AperturaPedida Apertura();
    void AbreRegistradas(OpcionDeLista opcion);
    void AbreEnviadas(OpcionDeLista opcion);
    void Abre(const std::function<std::unique_ptr<QDialog>()>& fabrica);
    [[nodiscard]] Entorno ElEntorno() const;

    std::unique_ptr<Ui::MDIFrm> m_ui;
    Proceso* m_proceso;
    Avisos* m_avisos;
    ArchivoPerfil m_perfil;
    Dialogos m_dialogos;
    Ayuda* m_ayuda;
    /// Whether the last command was about sent declarations. Wanted: it stays when the form has closed, and
    /// `mnuImprimir` goes by it.
    bool m_enviadas = false;
};

} // namespace xa518
