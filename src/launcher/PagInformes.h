#pragma once

#include "launcher/Page.h"
#include "launcher/SpoolList.h"

#include <memory>

namespace Ui {
class PagInformes;
}

namespace xa518 {

/// Opens a report, whose file lies in that folder, over a window.
using VistaDeInforme = std::function<void(QWidget& ventana, const QString& carpeta, const InformeRegistrado& informe)>;

/// The registered reports: look at one, remove one.
class PagInformes final : public Pagina {
    Q_OBJECT
  public:
    /// Without `vista` reports can only be listed and removed.
    PagInformes(const EntornoPagina& entorno, VistaDeInforme vista, QWidget* padre = nullptr);
    ~PagInformes() override;

    void Carga(Base& base) override;

  private:
    [[nodiscard]] QStringList Celdas(const InformeRegistrado& informe) const;
    void Ve();
    void Elimina();
    void ActualizaBotones();
    [[nodiscard]] QString PorQueNoSeVe() const;

    std::unique_ptr<Ui::PagInformes> m_ui;
    VistaDeInforme m_vista;
    QList<InformeRegistrado> m_lista;
};

} // namespace xa518
