#pragma once

#include "widgets/Form.h"

#include <QTextBrowser>

#include <memory>

namespace Ui {
class FrmTexto;
}

namespace xa518 {

/// Shows pages, and plain texts as they stand, their line ends and angle brackets included.
class VisorTexto final : public QTextBrowser {
    Q_OBJECT
  public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int clase, const QUrl& nombre) override;
};

/// A page to be read: what is new, or the licences. Links lead to the files that lie beside the page, and back.
class FrmTexto final : public Forma {
    Q_OBJECT
  public:
    explicit FrmTexto(const QString& titulo, QWidget* padre = nullptr);
    ~FrmTexto() override;

    /// Shows a text in Markdown.
    void PonTexto(const QString& texto);
    /// Shows a file, in Markdown if its name ends so, and otherwise as it stands.
    void PonArchivo(const QString& ruta);

  private:
    std::unique_ptr<Ui::FrmTexto> m_ui;
};

} // namespace xa518
