#pragma once

#include "launcher/PagInformes.h"
#include "launcher/PagRegistradas.h"
#include "launcher/Session.h"

#include <QList>
#include <QMainWindow>

#include <memory>

namespace Ui {
class FrmConsola;
}

namespace xa518 {

class Ayuda;
class PagCopias;
class PagPuestos;

/// The launcher's window. The modules find it by its title, to the letter, and don't start without it.
class FrmConsola final : public QMainWindow {
    Q_OBJECT
  public:
    /// `carpetaPrograma` is where the modules are looked for first.
    FrmConsola(const EntornoConsola& entorno, Avisos& avisos, QString carpetaPrograma, VistaDeInforme vista = {},
               VistasDeCambios cambios = {});
    ~FrmConsola() override;

    /// Starts the module of a form, or tells why it can't be started.
    void AbreModulo(const Formulario& formulario, const QStringList& argumentos = {});

  protected:
    bool event(QEvent* evento) override;

  private:
    void PonModulos();
    void PonFichas(VistaDeInforme vista, VistasDeCambios cambios);
    void EncuentraAyuda();
    [[nodiscard]] bool HayTrabajo() const;
    void Arranca();
    void OfreceInstalar();
    void Instala();
    void RevisaBase();
    void MuestraNovedades();

    /// Shows what the base holds now, and tells over the pages why it can't.
    void Recarga();
    void MuestraContenido();
    void MuestraFalta(const Error& error);
    void PonAviso(const QString& texto, bool instalable);

    std::unique_ptr<Ui::FrmConsola> m_ui;
    Avisos* m_avisos;
    QString m_carpetaPrograma;
    Sesion m_sesion;
    Ayuda* m_ayuda;
    QList<Pagina*> m_paginas; ///< those that need the base
    PagPuestos* m_puestos = nullptr;
    PagCopias* m_copias = nullptr;
    bool m_arrancada = false;
    QString m_falta;    ///< why the base doesn't open
    QString m_defectos; ///< what the last check of the base found
};

} // namespace xa518
