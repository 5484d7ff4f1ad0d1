#pragma once

#include "family/SentCopies.h"
#include "launcher/DeclarationList.h"
#include "launcher/Page.h"

#include <QHash>

#include <memory>

namespace Ui {
class PagRegistradas;
}

namespace xa518 {

struct Proceso;

/// Shows over a window what differs between a registered declaration, of a declarant called so, and a sent copy of its
/// month. The process is its own only until it returns.
using VistaDeCambios =
    std::function<void(QWidget& ventana, const Proceso& proceso, const CopiaEnviada& copia, const QString& nombre)>;
/// By the numbers of the forms that have one.
using VistasDeCambios = QHash<QString, VistaDeCambios>;

/// The registered declarations: what each changes of what was sent, and the sending of one.
class PagRegistradas final : public Pagina {
    Q_OBJECT
  public:
    PagRegistradas(const EntornoPagina& entorno, VistasDeCambios cambios, QWidget* padre = nullptr);
    ~PagRegistradas() override;

    void Carga(Base& base) override;

  private:
    [[nodiscard]] QStringList Celdas(const DeclaracionListada& declaracion) const;
    void QueCambia();
    void ActualizaBotones();
    void Envia();
    /// `original` is the copy beside which it would be another original, if any.
    [[nodiscard]] bool Confirma(const DeclaracionListada& declaracion, const QString& original) const;

    std::unique_ptr<Ui::PagRegistradas> m_ui;
    VistasDeCambios m_cambios;
    QList<DeclaracionListada> m_lista;
};

} // namespace xa518
