#pragma once

#include "family/ChangeLog.h"
#include "launcher/Page.h"

#include <memory>

namespace Ui {
class PagBitacora;
}

namespace xa518 {

/// The log of who changed what: its newest entries, filtered, and below them what the chosen one has changed.
class PagBitacora final : public Pagina {
    Q_OBJECT
  public:
    explicit PagBitacora(const EntornoPagina& entorno, QWidget* padre = nullptr);
    ~PagBitacora() override;

    void Carga(Base& base) override;

  private:
    [[nodiscard]] FiltroDeBitacora Filtro() const;
    [[nodiscard]] static QStringList Celdas(const Asiento& asiento);
    void Filtra();
    void MuestraDetalle();

    std::unique_ptr<Ui::PagBitacora> m_ui;
    QList<Asiento> m_lista;
};

} // namespace xa518
