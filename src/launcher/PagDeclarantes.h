#pragma once

#include "launcher/Declarants.h"
#include "launcher/Page.h"

#include <QSet>

#include <memory>

namespace Ui {
class PagDeclarantes;
}

namespace xa518 {

/// The register of declarants: add, change, remove.
class PagDeclarantes final : public Pagina {
    Q_OBJECT
  public:
    explicit PagDeclarantes(const EntornoPagina& entorno, QWidget* padre = nullptr);
    ~PagDeclarantes() override;

    void Carga(Base& base) override;

  private:
    void Muestra();
    [[nodiscard]] QStringList Celdas(const Declarante& declarante) const;
    void Agrega();
    void Modifica();
    void Elimina();
    void Abre(const Declarante& inicial, VeredictoDeclarante (Declarantes::*escribe)(Declarante, const Firma&));
    void ActualizaBotones();

    std::unique_ptr<Ui::PagDeclarantes> m_ui;
    QList<Declarante> m_lista;
    QSet<QString> m_propios; ///< the numbers of those that the module shows to the user
    QStringList m_usuarios;
};

} // namespace xa518
