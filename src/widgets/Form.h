#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QList>

namespace xa518 {

/// What every form is. Esc does nothing, but where a form asks for it; the window's close button is the form's own way
/// out. Enter goes to the next field, presses the button that has the focus, and never presses another one. A list that
/// can be written in keeps what was written.
class Forma : public QDialog {
    Q_OBJECT
    Q_PROPERTY(int contextoAyuda READ ContextoAyuda WRITE PonContextoAyuda)
  public:
    explicit Forma(QWidget* padre = nullptr);

    /// The first time, on the screen with its whole frame, and scrolled where the screen has no room for it.
    void setVisible(bool visible) override;

    /// The window's close button: the leave handler of the field, then `Salir`, whatever the handler said.
    void reject() override;

    /// Opens a form over this one, waits until it closes, and runs this one's `AlActivar`.
    void AbreModal(QDialog& otra);

    /// The help topic that F1 opens here; 0 for none.
    [[nodiscard]] int ContextoAyuda() const { return m_contextoAyuda; }
    void PonContextoAyuda(int contexto) { m_contextoAyuda = contexto; }

  protected:
    /// To be called once the widgets are there. `salidas` are the buttons that leave the form.
    void Prepara(const QList<QAbstractButton*>& salidas);

    /// Esc leaves the form as the window's close button does: for one whose work is typed anew in a breath.
    void SaleConEsc() { m_saleConEsc = true; }

    /// The form's activation: when it first shows and each time that a form over it has closed.
    virtual void AlActivar() {}

    /// The way out; a form that asks first does it here and ends with `Termina`.
    virtual void Salir() { Termina(); }

    /// Closes the form for good.
    void Termina() { done(Accepted); }

    void keyPressEvent(QKeyEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

  private:
    bool m_activada = false;
    bool m_saleConEsc = false;
    int m_contextoAyuda = 0;
};

} // namespace xa518
