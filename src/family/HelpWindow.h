#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

namespace xa518 {

class Avisos;
class FrmAyuda;

/// Opens the help window over the form in front, and the form's own topic with F1, also over a message of that form. A
/// form tells its topic by a property `contextoAyuda`; without one its name is looked up.
class Ayuda final : public QObject {
    Q_OBJECT
  public:
    explicit Ayuda(Avisos& avisos, QObject* padre = nullptr);
    ~Ayuda() override;

    /// The help file, known once the configuration is read.
    void PonArchivo(const QString& ruta) { m_ruta = ruta; }

    void MuestraContenido();
    void Muestra(const QString& contexto);

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    FrmAyuda* Ventana();

    Avisos* m_avisos;
    QString m_ruta;
    QPointer<FrmAyuda> m_ventana;
};

} // namespace xa518
