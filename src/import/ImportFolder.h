#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CarpetaDeImportacion;
}

namespace xa518 {

/// Where the import file is looked for: a folder that is typed, picked from the lists or put here, and of its files
/// the one that is expected. An empty list is the sign that it isn't there.
class CarpetaDeImportacion : public QWidget {
    Q_OBJECT
  public:
    explicit CarpetaDeImportacion(QWidget* padre = nullptr);
    ~CarpetaDeImportacion() override;

    /// The bare name of the file that shows, whatever the case of its letters.
    void PonEsperado(const QString& nombre);
    void PonCarpeta(const QString& carpeta);
    [[nodiscard]] const QString& Carpeta() const { return m_carpeta; }

    /// Looks for the file anew.
    void ListaArchivos();
    /// Under the list of files: why one was refused whole, until another is looked for.
    void PonDetalle(const QString& detalle);
    /// Whether another folder can be chosen.
    void Activa(bool activa);

  Q_SIGNALS:
    /// The person would rather pick the folder in the system's own dialog.
    void Examinar();
    /// The unit that was picked can't be read; the folder stays.
    void UnidadNoDisponible();

  private:
    void PreparaUnidades();
    void Conecta();
    void CambiaUnidad();
    void EntraEnCarpeta();
    void MarcaUnidad();
    void ListaCarpetas();

    std::unique_ptr<Ui::CarpetaDeImportacion> m_ui;
    QString m_carpeta;
    QString m_esperado;
};

} // namespace xa518
