#pragma once

#include <QStatusBar>

namespace xa518 {

class EtiquetaRecortada;

/// The family's status bar: a message, the declarant's name and RUC, the period and the form's number. What doesn't
/// fit is shortened with dots and told whole by a tooltip.
class BarradeEstadoQMD : public QStatusBar {
    Q_OBJECT
    Q_PROPERTY(QString Formulario READ Formulario WRITE PonFormulario)
    Q_PROPERTY(QString Ruc READ Ruc WRITE PonRuc)
    Q_PROPERTY(QString Nombre READ Nombre WRITE PonNombre)
    Q_PROPERTY(QString Periodo READ Periodo WRITE PonPeriodo)
    Q_PROPERTY(QString Mensaje READ Mensaje WRITE PonMensaje)
  public:
    explicit BarradeEstadoQMD(QWidget* padre = nullptr);

    [[nodiscard]] QString Formulario() const;
    [[nodiscard]] QString Ruc() const;
    [[nodiscard]] QString Nombre() const;
    [[nodiscard]] QString Periodo() const;
    [[nodiscard]] QString Mensaje() const;
    void PonFormulario(const QString& texto);
    void PonRuc(const QString& texto);
    void PonNombre(const QString& texto);
    void PonPeriodo(const QString& texto);
    void PonMensaje(const QString& texto);

    /// Empties the panels RUC, name and period and puts the form's number back.
    void Limpia(const QString& formulario);

  private:
    void AgregaPanelFijo(EtiquetaRecortada& panel, QLatin1StringView nombre, const QString& rotulo, int caracteres);

    EtiquetaRecortada* m_mensaje;
    EtiquetaRecortada* m_nombre;
    EtiquetaRecortada* m_ruc;
    EtiquetaRecortada* m_periodo;
    EtiquetaRecortada* m_formulario;
};

} // namespace xa518
