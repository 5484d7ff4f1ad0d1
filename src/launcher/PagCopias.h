#pragma once

#include "launcher/Backups.h"
#include "launcher/Page.h"

#include <memory>

namespace Ui {
class PagCopias;
}

namespace xa518 {

/// The dated copies of the base: make one, put one back. The base itself is moved from here to a server, or back.
class PagCopias final : public Pagina {
    Q_OBJECT
  public:
    explicit PagCopias(const EntornoPagina& entorno, QWidget* padre = nullptr);
    ~PagCopias() override;

    /// Shows the copies; it needs no base, so that one can be put back when the base doesn't open.
    void Carga();
    void Carga(Base& /*base*/) override { Carga(); }

  Q_SIGNALS:
    void Restaurada(); ///< the base is another one now

  private:
    [[nodiscard]] std::function<void()> Trabajo(std::function<void()> empieza);
    void Haz();
    void Restaura();
    void PideMudanza();
    void Muda(const QString& destino);

    std::unique_ptr<Ui::PagCopias> m_ui;
    QList<Respaldo> m_lista;
};

} // namespace xa518
