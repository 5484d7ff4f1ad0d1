#pragma once

#include "family/HelpBook.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmAyuda;
}

namespace xa518 {

/// The module's help window: stays open beside the form that it helps with.
class FrmAyuda final : public QDialog {
    Q_OBJECT
  public:
    /// Raises `Error` when the help file can't be opened.
    explicit FrmAyuda(const QString& ruta, QWidget* padre = nullptr);
    ~FrmAyuda() override;

    void Muestra(const QString& contexto);
    void MuestraContenido();

  private:
    void Conecta();
    void Presenta(const QUrl& pagina);

    LibroAyuda m_libro;
    std::unique_ptr<Ui::FrmAyuda> m_ui;
};

} // namespace xa518
